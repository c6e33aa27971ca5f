#include "io/message.h"

#include <unistd.h>

#include <span>

#include "io/file.h"

namespace morvane {

namespace {

collected_messages* collector = nullptr;

}  // namespace

collected_messages::collected_messages(bool keeps_them) : keeps(keeps_them), outer(collector) {
  collector = this;
}

collected_messages::~collected_messages() {
  collector = outer;
}

void print_text(std::string_view text) {
  if (collector != nullptr) {
    if (collector->keeps) {
      collector->text += text;
    }
    return;
  }
  // Errors on standard output cannot be reported.
  write_bytes(STDOUT_FILENO, std::as_bytes(std::span(text)));
}

int report_open_failure(std::string_view path) {
  print_line(open_failure_text, path);
  return -1;
}

}  // namespace morvane
