#include "cli/pack/parsed_package.h"

#include "format/records.h"
#include "io/message.h"

namespace morvane::cli {

std::string append_parsed(package_writer& package, const pack_inputs& inputs,
                          const parsed_dvis& parsed, bool vproc) {
  const collected_messages forgotten(false);
  append_header(package, parsed.size());
  for (const parsed_dvi& one : parsed) {
    append_bytes(package, bytes_of(one.dvi));
  }
  for (std::size_t i = 0; i < parsed.size(); ++i) {
    append_bytes(package, parsed[i].ports);
    const std::string path = join_path(inputs.folder, inputs.dvis[i].name);
    if (read_file_bytes(package, path, static_cast<std::int32_t>(parsed[i].dvi.dvi_img_size)) !=
        0) {
      return path;
    }
  }
  if (vproc) {
    for (const parsed_dvi& one : parsed) {
      append_bytes(package, bytes_of(one.vproc));
    }
    for (const parsed_dvi& one : parsed) {
      append_bytes(package, one.vproc_records);
    }
  }
  return {};
}

}  // namespace morvane::cli
