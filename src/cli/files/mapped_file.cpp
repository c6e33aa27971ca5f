#include "cli/files/mapped_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <functional>
#include <utility>

#include "cli/files/temporary_file.h"
#include "cli/output/console.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// The newest mapped file. Only by this can the handler of a signal find the files.
mapped_file* newest_file = nullptr;

}  // namespace

mapped_file::mapped_file(file_handle file, std::size_t size, std::string_view path)
    : file_(std::move(file)), path_(path), older_(newest_file) {
  void* const mapped = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file_.descriptor(), 0);
  if (mapped != MAP_FAILED) {
    bytes_ = {static_cast<const std::uint8_t*>(mapped), size};
  }
  newest_file = this;
}

mapped_file::~mapped_file() {
  mapped_file** link = &newest_file;
  while (*link != this) {
    link = &(*link)->older_;
  }
  *link = older_;
  if (!bytes_.empty()) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the system's interface
    ::munmap(const_cast<std::uint8_t*>(bytes_.data()), bytes_.size());
  }
}

bool mapped_file::is_cut() const {
  const auto status = status_of(file_);
  return status && static_cast<std::size_t>(status->st_size) < bytes_.size();
}

const mapped_file* mapped_file_at(const void* address) {
  const mapped_file* file = newest_file;
  while (file != nullptr && (std::less<>()(address, file->bytes_.data()) ||
                             !std::less<>()(address, file->bytes_.data() + file->bytes_.size()))) {
    file = file->older_;
  }
  return file;
}

int report_lost_bytes(const mapped_file& file) {
  if (!file.is_cut()) {
    return report_file_error(file.path_, EIO);
  }
  print_message(joined(printable(file.path_), ": the file was cut while it was read"));
  return status_failed;
}

namespace {

/// Any cause but mapped bytes, such as a signal that somebody sent, ends the program as if there
/// were no handler. Whoever reads mapped bytes is not in the middle of allocating memory, so
/// messages can be made here.
void end_at_bus_error(int signal, siginfo_t* cause, void* /*context*/) {
  remove_temporary_files();
  const mapped_file* const lost = mapped_file_at(cause->si_addr);
  if (lost != nullptr) {
    ::_exit(report_lost_bytes(*lost));
  }
  static_cast<void>(::raise(signal));
}

}  // namespace

void end_at_lost_bytes() {
  struct sigaction action {};
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): the system's interface
  action.sa_sigaction = end_at_bus_error;
  action.sa_flags = static_cast<int>(SA_SIGINFO | SA_RESETHAND);
  ::sigaction(SIGBUS, &action, nullptr);
}

}  // namespace morvane::cli
