#include "io/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace morvane {

namespace {

constexpr mode_t created_mode = 0666;  // less what the umask takes

/// Repeats a system call for as long as a signal interrupts it.
template <class Call>
auto uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) {
    result = call();
  }
  return result;
}

file_handle open_file(const std::string& path, int flags) {
  return file_handle(uninterrupted([&] {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's interface
    return ::open(path.c_str(), flags | O_CLOEXEC, created_mode);
  }));
}

}  // namespace

file_handle::~file_handle() {
  if (is_open()) {
    ::close(descriptor_);
  }
}

file_handle open_to_read(const std::string& path) {
  file_handle file = open_file(path, O_RDONLY | O_NONBLOCK);
  if (file.is_open()) {
    // Only the opening must not wait. NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): as above
    ::fcntl(file.descriptor(), F_SETFL, O_RDONLY);
  }
  return file;
}

file_handle open_to_write(const std::string& path) {
  return open_file(path, O_WRONLY | O_CREAT | O_TRUNC);
}

file_handle open_to_append(const std::string& path) {
  return open_file(path, O_WRONLY | O_CREAT | O_APPEND);
}

std::size_t read_bytes(const file_handle& file, std::span<std::byte> bytes) {
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t got = uninterrupted(
        [&] { return ::read(file.descriptor(), bytes.data() + filled, bytes.size() - filled); });
    if (got <= 0) {
      break;
    }
    filled += static_cast<std::size_t>(got);
  }
  return filled;
}

void write_bytes(const file_handle& file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t put =
        uninterrupted([&] { return ::write(file.descriptor(), bytes.data(), bytes.size()); });
    if (put <= 0) {
      break;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(put));
  }
}

std::int64_t regular_file_size(const file_handle& file) {
  struct stat status {};
  const bool regular = ::fstat(file.descriptor(), &status) == 0 && S_ISREG(status.st_mode);
  return regular ? status.st_size : -1;
}

std::string read_file(const std::string& path) {
  std::string text;
  const file_handle file = open_to_read(path);
  if (!file.is_open()) {
    return text;
  }
  // One byte more than the file has, so that the first read meets its end.
  text.resize(static_cast<std::size_t>(std::max<std::int64_t>(regular_file_size(file), 0)) + 1);
  std::size_t filled = 0;
  for (;;) {
    filled += read_bytes(file, std::as_writable_bytes(std::span(text).subspan(filled)));
    if (filled < text.size()) {
      break;
    }
    text.resize(text.size() + chunk_size);
  }
  text.resize(filled);
  return text;
}

std::string join_path(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  return path.append(folder).append("/").append(name);
}

}  // namespace morvane
