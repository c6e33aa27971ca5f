#include "io/message.h"

#include <cstdio>

namespace morvane {

void print_text(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

int report_open_failure(std::string_view path) {
  print_line(open_failure_text, path);
  return -1;
}

}  // namespace morvane
