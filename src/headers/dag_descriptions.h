// Reads the description of a DAG from its header: name, addresses, image size and port counts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/input_list.h"
#include "format/macros.h"
#include "format/records.h"
#include "headers/length_check.h"
#include "headers/line_reader.h"
#include "headers/line_scanner.h"
#include "headers/macro_values.h"
#include "headers/reading_observer.h"

namespace morvane {

/// The port that a line of a DAG's description counts as, and its class; none for other lines.
struct counted_port {
  const port_class* ports_class = nullptr;
  std::string_view name{};
};
counted_port find_counted_port(std::string_view line);

/// Fills the fields of a dvi_desc that the text of its header describes. Returns 0; or -1 at a DAG
/// name that is too long, with the limit VAR_NAME reported.
template <class Observer>
int read_dag_fields(dvi_desc& dvi, std::string_view header, Observer& observer) {
  line_reader lines{header};
  std::string_view dag_name;
  if (!next_value(lines, dag_name_macro, dag_name)) {
    return 0;
  }
  observer.name_dag(dag_name);
  if (check_length_limit(dag_name, var_name_limit) != 0) {
    return -1;
  }
  store_text(std::as_writable_bytes(std::span(dvi.dag_name)), dag_name);
  named_line named{.line = {}, .name = dag_name, .rests = {}};
  std::string_view line;
  while (next_line(lines, line)) {
    const counted_port port = find_counted_port(line);
    if (port.ports_class != nullptr) {
      ++(port.ports_class == &input_ports ? dvi.input_num : dvi.output_num);
      observer.count_port(port.name, *port.ports_class);
      continue;
    }
    set_line(named, line);
    const macro_match match = find_macro(named, dag_macros);
    observer.read_line(line, match);
    store_match(match, bytes_of(dvi));
  }
  return 0;
}

/// Sets the fields of a dvi_desc that do not come from its header, and those that are computed. The
/// index is that of its DVI, the position that of the DVI in the package.
void complete_dag_description(dvi_desc& dvi, std::int32_t index, std::size_t position);

/// Appends one dvi_desc for every header of the folder, in the order of the list. A header that
/// cannot be read, or has no DAG name, gives a record without name, sizes and ports. Returns 0. At
/// a DAG name that is too long, reports the limit VAR_NAME, reads no more headers and returns -1.
int parse_dag_descriptions(std::vector<dvi_desc>& dvis, const std::string& folder,
                           const input_list& headers);

}  // namespace morvane
