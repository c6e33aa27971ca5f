#include "cli/pack/parsed_package.h"

#include <span>

#include "cli/pack/package_layout.h"
#include "io/message.h"

namespace morvane::cli {

namespace {

struct writing {
  package_writer& package;
  std::string lost{};  // the path of an image

  [[nodiscard]] bool visit(std::span<const std::byte> bytes) const {
    append_bytes(package, bytes);
    return true;
  }

  bool visit_image(const std::string& path, std::uint32_t size) {
    const bool is_read = read_file_bytes(package, path, static_cast<std::int32_t>(size)) == 0;
    lost = is_read ? std::string() : path;
    return is_read;
  }
};

}  // namespace

std::string append_parsed(package_writer& package, const pack_inputs& inputs,
                          const parsed_dvis& parsed, bool vproc) {
  const collected_messages forgotten(false);
  writing run{.package = package};
  visit_parts(inputs, parsed, vproc, run);
  return run.lost;
}

}  // namespace morvane::cli
