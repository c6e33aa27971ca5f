#include "companion/described_package.h"

#include "format/records.h"
#include "io/message.h"

namespace morvane::companion {

std::string append_described(package_writer& package, const pack_inputs& inputs,
                             const described_dvis& described, bool vproc) {
  const collected_messages forgotten(false);
  append_header(package, described.size());
  for (const described_dvi& one : described) {
    append_bytes(package, bytes_of(one.dvi));
  }
  for (std::size_t i = 0; i < described.size(); ++i) {
    append_bytes(package, described[i].ports);
    const std::string path = join_path(inputs.folder, inputs.dvis[i].name);
    if (read_file_bytes(package, path, static_cast<std::int32_t>(described[i].dvi.dvi_img_size)) !=
        0) {
      return path;
    }
  }
  if (vproc) {
    for (const described_dvi& one : described) {
      append_bytes(package, bytes_of(one.vproc));
    }
    for (const described_dvi& one : described) {
      append_bytes(package, one.vproc_records);
    }
  }
  return {};
}

}  // namespace morvane::companion
