#include "io/message.h"

#include <cstdio>

namespace morvane {

void print_text(std::string_view text) {
  // Nobody is left to tell when standard output fails.
  // cppcheck-suppress invalidLifetime; the text outlives the call
  static_cast<void>(std::fwrite(text.data(), 1, text.size(), stdout));
  static_cast<void>(std::fflush(stdout));
}

int report_open_failure(std::string_view path) {
  print_line(open_failure_text, path);
  return -1;
}

}  // namespace morvane
