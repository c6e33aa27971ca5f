#include "headers/vproc_descriptions.h"

#include "io/file.h"

namespace morvane {

int parse_vproc_description(std::vector<vproc_desc>& vprocs, const std::string& folder,
                            const input_list& headers) {
  const no_observer nobody;
  for (const input_entry header : headers) {
    vprocs.push_back(count_vproc_records(read_file(join_path(folder, header.name)).text, nobody));
  }
  return 0;
}

int parse_smb_descriptions(std::vector<smb_desc>& smbs, std::string_view header) {
  return read_blocks(header, smb_blocks, smb_desc{}, smbs);
}

}  // namespace morvane
