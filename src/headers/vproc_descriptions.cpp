#include "headers/vproc_descriptions.h"

#include <array>
#include <cstdint>

#include "headers/block_reader.h"
#include "headers/line_scanner.h"
#include "io/file.h"

namespace morvane {

vproc_desc count_vproc_records(std::string_view header) {
  vproc_desc vproc{};
  line_reader lines{header};
  std::array keys{sought_key{.key = variable_keyword}, sought_key{.key = smb_keyword}};
  std::string_view line;
  std::string_view name;
  while (next_line_with(lines, keys, line)) {
    if (find_macro_value(line, variable_keyword, name, macro_delimiters) != no_value) {
      ++vproc.variable_num;
    } else if (find_macro_value(line, smb_keyword, name, macro_delimiters) != no_value) {
      ++vproc.smb_num;
    }
  }
  vproc.vproc_records_size = static_cast<std::uint32_t>(sizeof(var_desc)) * vproc.variable_num +
                             static_cast<std::uint32_t>(sizeof(smb_desc)) * vproc.smb_num;
  return vproc;
}

int parse_vproc_description(std::vector<vproc_desc>& vprocs, const std::string& folder,
                            const std::vector<input_entry>& headers) {
  for (const input_entry& header : headers) {
    vprocs.push_back(count_vproc_records(read_file(join_path(folder, header.name))));
  }
  return 0;
}

int parse_smb_descriptions(std::vector<smb_desc>& smbs, std::string_view header) {
  const block_format format{.keyword = smb_keyword,
                            .marker_lead = "_",
                            .name_limit = var_name_limit,
                            .name_offset = offsetof(smb_desc, smb_name),
                            .macros = smb_macros};
  return read_blocks(header, format, smb_desc{}, smbs);
}

}  // namespace morvane
