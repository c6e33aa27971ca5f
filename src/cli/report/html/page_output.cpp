#include "cli/report/html/page_output.h"

#include <system_error>

namespace morvane::cli {

void flush(page_output& out) {
  if (out.signals != nullptr && out.signals->is_waiting()) {
    throw page_interruption();
  }
  const int error = write_checked(out.descriptor, out.pending);
  out.pending.clear();
  if (error != 0) {
    hide_progress(out.streams.progress);
    throw std::system_error(error, std::generic_category(), out.name);
  }
}

}  // namespace morvane::cli
