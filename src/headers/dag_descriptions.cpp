#include "headers/dag_descriptions.h"

#include <cstdint>

#include "headers/length_check.h"
#include "headers/line_reader.h"
#include "headers/line_scanner.h"
#include "headers/macro_values.h"
#include "io/file.h"

namespace morvane {

namespace {

bool holds_value(std::string_view line, std::string_view key) {
  std::string_view value;
  return find_macro_value(line, key, value, macro_delimiters) != no_value;
}

/// Fills the fields that the header describes.
int read_fields(dvi_desc& dvi, std::string_view header) {
  line_reader lines{header};
  std::string_view dag_name;
  if (!next_value(lines, dag_name_macro, dag_name)) {
    return 0;
  }
  if (check_length_limit(dag_name, var_name_limit) != 0) {
    return -1;
  }
  store_text(std::as_writable_bytes(std::span(dvi.dag_name)), dag_name);
  named_line named{.line = {}, .name = dag_name, .rests = {}};
  std::string_view line;
  while (next_line(lines, line)) {
    if (holds_value(line, input_ports.keyword)) {
      ++dvi.input_num;
    } else if (holds_value(line, output_ports.keyword)) {
      ++dvi.output_num;
    } else {
      set_line(named, line);
      store_macro(named, dag_macros, bytes_of(dvi));
    }
  }
  return 0;
}

}  // namespace

int parse_dag_description(dvi_desc& dvi, std::string_view header, std::int32_t index,
                          std::size_t position) {
  dvi = {};
  if (read_fields(dvi, header) != 0) {
    return -1;
  }
  dvi.dvi_id = static_cast<std::uint8_t>(index);
  dvi.vproc_id = static_cast<std::uint8_t>(position);
  dvi.dvi_pkg_size = dvi.dvi_img_size + static_cast<std::uint32_t>(sizeof(port_desc)) *
                                            (dvi.input_num + dvi.output_num);
  return 0;
}

int parse_dag_descriptions(std::vector<dvi_desc>& dvis, const std::string& folder,
                           const std::vector<input_entry>& headers) {
  for (std::size_t position = 0; position < headers.size(); ++position) {
    dvi_desc dvi{};
    const std::string header = read_file(join_path(folder, headers[position].name));
    if (parse_dag_description(dvi, header, headers[position].index, position) != 0) {
      return -1;
    }
    dvis.push_back(dvi);
  }
  return 0;
}

}  // namespace morvane
