#include "driver/pack_run.h"

#include <cstdint>
#include <string>
#include <utility>

#include "driver/options.h"
#include "driver/pack_sections.h"
#include "inspect/inspect_package.h"
#include "io/message.h"

namespace morvane {

namespace {

/// Creates or empties the package. The handle is closed if the file cannot be opened or is one of
/// the inputs, which must keep their content.
file_handle open_package_to_write(const std::string& path, const pack_inputs& inputs) {
  writable_file file = open_to_write(path);
  const bool usable = file.is_new || (!is_input(file.identity, inputs) && empty_file(file.handle));
  return usable ? std::move(file.handle) : file_handle();
}

}  // namespace

int run_pack() {
  pack_inputs inputs{.folder = settings.dir, .dvis = {}, .headers = {}};
  if (find_inputs(inputs, settings.vproc) != 0) {
    return -1;
  }
  package_writer package{.file = open_package_to_write(settings.filename, inputs)};
  if (!package.file.is_open()) {
    print_line("error: ", open_failure_text, settings.filename);
    return -1;
  }
  std::uint32_t size = 0;
  const int status = append_sections(package, inputs, settings.vproc, size);
  close_package(package);
  if (status != 0) {
    return -1;
  }
  print_line("Save to file ", settings.filename, " with file size ",
             static_cast<std::int32_t>(size), ".");
  print_line();
  if (settings.verbose) {
    inspect_package(settings.filename, settings.parsedir, settings.vproc);
  }
  return 0;
}

}  // namespace morvane
