// Counts the vproc records that headers describe, and reads the SMB blocks.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/input_list.h"
#include "format/records.h"
#include "headers/block_reader.h"
#include "headers/line_scanner.h"

namespace morvane {

/// The blocks of SMBs.
inline constexpr block_format smb_blocks{.keyword = smb_keyword,
                                         .marker_lead = "_",
                                         .name_limit = var_name_limit,
                                         .name_offset = offsetof(smb_desc, smb_name),
                                         .macros = smb_macros};

/// The vproc_desc of a header's text: the numbers of lines that introduce variables and SMBs. A
/// line that introduces both counts as a variable.
template <class Observer>
vproc_desc count_vproc_records(std::string_view header, Observer& observer) {
  vproc_desc vproc{};
  line_reader lines{header};
  std::array keys{sought_key{.key = variable_keyword}, sought_key{.key = smb_keyword}};
  std::string_view line;
  std::string_view name;
  while (next_line_with(lines, keys, line)) {
    if (find_macro_value(line, variable_keyword, name, macro_delimiters) != no_value) {
      ++vproc.variable_num;
      observer.count_variable(name);
    } else if (find_macro_value(line, smb_keyword, name, macro_delimiters) != no_value) {
      ++vproc.smb_num;
      observer.count_smb(name);
    }
  }
  vproc.vproc_records_size = static_cast<std::uint32_t>(sizeof(var_desc)) * vproc.variable_num +
                             static_cast<std::uint32_t>(sizeof(smb_desc)) * vproc.smb_num;
  return vproc;
}

/// Appends one vproc_desc for every header of the folder, in the order of the list. A header that
/// cannot be read gives zeros. Returns 0.
int parse_vproc_description(std::vector<vproc_desc>& vprocs, const std::string& folder,
                            const input_list& headers);

/// Appends one smb_desc for every SMB block in the header's text. Returns 0. At an SMB name that is
/// too long, reports the limit VAR_NAME, stops reading and returns -1.
int parse_smb_descriptions(std::vector<smb_desc>& smbs, std::string_view header);

}  // namespace morvane
