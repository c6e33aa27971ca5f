#include "cli/files/bus_errors.h"

#include <unistd.h>

#include <csignal>
#include <string_view>

#include "cli/files/temporary_file.h"
#include "cli/output/console.h"

namespace morvane::cli {

namespace {

extern "C" void end_at_bus_error(int /*signal*/) {
  constexpr std::string_view text =
      "morvane: a file cannot be read any more: it was cut, or its disk fails\n";
  static_cast<void>(::write(STDERR_FILENO, text.data(), text.size()) < 0);
  remove_temporary_files();
  ::_exit(status_failed);
}

}  // namespace

void end_at_bus_errors() {
  std::signal(SIGBUS, end_at_bus_error);  // NOLINT(cert-err33-c): SIGBUS can be handled
}

}  // namespace morvane::cli
