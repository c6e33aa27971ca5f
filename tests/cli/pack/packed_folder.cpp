#include "cli/pack/packed_folder.h"

#include "cli/check/check_package.h"
#include "driver/pack_sections.h"
#include "io/message.h"

namespace morvane::test {

bool pack_folder(const std::string& folder, bool vproc, const std::string& package) {
  const collected_messages forgotten(false);
  pack_inputs inputs{.folder = folder, .dvis = {}, .headers = {}};
  if (find_inputs(inputs, vproc) != 0) {
    return false;
  }
  package_writer writer{.file = open_to_write(package).handle};
  empty_file(writer.file);
  std::uint32_t size = 0;
  const int status = append_sections(writer, inputs, vproc, size);
  close_package(writer);
  return status == 0;
}

std::span<const std::uint8_t> bytes_of_package(const std::string& package) {
  return {reinterpret_cast<const std::uint8_t*>(package.data()), package.size()};
}

bool is_sound(const std::string& package, bool vproc) {
  bool has_error = false;
  const cli::check_scope scope{.vproc = vproc ? cli::vproc_demand::required
                                              : cli::vproc_demand::forbidden};
  morvane_view view{};
  morvane_view_damage damage{};
  morvane_view_open(&view, bytes_of_package(package).data(), package.size(), &damage);
  cli::check_package(
      view, damage, scope,
      [&](const cli::finding& found) {
        has_error = has_error || cli::level_of(found) == cli::severity::error;
      },
      [](std::uint64_t) {});
  return !has_error;
}

}  // namespace morvane::test
