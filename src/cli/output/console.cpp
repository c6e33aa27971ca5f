#include "cli/output/console.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include "cli/output/printable_text.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

bool is_set(const char* variable) {
  const char* value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): one thread
  return value != nullptr && *value != '\0';
}

}  // namespace

void open_standard_streams() {
  // A descriptor that is opened the wrong way round refuses every byte, as a closed one does.
  constexpr std::array<int, 3> wrong_way{O_WRONLY, O_RDONLY, O_RDONLY};
  for (int stream = 0; stream < static_cast<int>(wrong_way.size()); ++stream) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's interface
    if (::fcntl(stream, F_GETFD) < 0) {
      // The lowest free number is this one. NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg)
      static_cast<void>(::open("/dev/null", wrong_way.at(static_cast<std::size_t>(stream))));
    }
  }
  // NOLINTBEGIN(cert-err33-c): both can be ignored
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  // NOLINTEND(cert-err33-c)
}

bool is_on_terminal() {
  return ::isatty(STDOUT_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1;
}

bool has_colours() {
  const char* terminal = std::getenv("TERM");  // NOLINT(concurrency-mt-unsafe): one thread
  const bool is_dumb = terminal == nullptr || std::strcmp(terminal, "dumb") == 0;
  return ::isatty(STDOUT_FILENO) == 1 && !is_dumb && !is_set("NO_COLOR");
}

int write_checked(int descriptor, std::span<const std::byte> bytes) {
  return write_bytes(descriptor, bytes) == bytes.size() ? 0 : errno;
}

int write_checked(int descriptor, std::string_view text) {
  return write_checked(descriptor, std::as_bytes(std::span(text)));
}

std::string reason_of(int error) {
  return std::strerror(error);  // NOLINT(concurrency-mt-unsafe): one thread
}

void print_result(console& streams, std::string_view text) {
  streams.pending += text;
  if (streams.pending.size() >= max_pending && !streams.gathers) {
    flush_results(streams);
  }
}

void flush_results(console& streams) {
  hide_progress(streams.progress);
  const int error = write_checked(streams.descriptor, streams.pending);
  streams.pending.clear();
  // As messages, what goes to standard error may be lost.
  if (error != 0 && streams.descriptor == STDOUT_FILENO) {
    throw std::system_error(error, std::generic_category(), standard_output_name);
  }
}

void print_message(std::string_view text) {
  // Nothing is left to complain to. NOLINTNEXTLINE(bugprone-unused-return-value)
  static_cast<void>(write_checked(STDERR_FILENO, joined("morvane: ", text, "\n")));
}

int report_file_error(std::string_view path, int error) {
  print_message(joined(printable(path), ": ", reason_of(error)));
  return status_failed;
}

}  // namespace morvane::cli
