#include "io/file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

readable_file open_to_read(const std::string& path) {
  readable_file file{.handle = open_file(path, O_RDONLY | O_NONBLOCK)};
  struct stat status {};
  if (!file.handle.is_open() || ::fstat(file.handle.descriptor(), &status) != 0) {
    return file;
  }
  if (S_ISREG(status.st_mode)) {
    file.size = status.st_size;
  } else {
    // Only the opening must not wait. NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): as above
    ::fcntl(file.handle.descriptor(), F_SETFL, O_RDONLY);
  }
  return file;
}

file_handle open_to_write(const std::string& path) {
  return open_file(path, O_WRONLY | O_CREAT | O_TRUNC);
}

file_handle open_to_write_in_place(const std::string& path) {
  return open_file(path, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
}

file_handle open_to_append_in_place(const std::string& path) {
  return open_file(path, O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW);
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

std::string read_file(const std::string& path) {
  std::string text;
  const readable_file file = open_to_read(path);
  if (!file.handle.is_open()) {
    return text;
  }
  // What has no size of its own, or says 0 as the files of the kernel do, is read until it ends.
  const std::size_t step = file.size > 0 ? static_cast<std::size_t>(file.size) : chunk_size;
  std::size_t filled = 0;
  do {
    text.resize(filled + step);
    filled += read_bytes(file.handle, std::as_writable_bytes(std::span(text).subspan(filled)));
  } while (filled == text.size() && file.size <= 0);
  text.resize(filled);
  return text;
}

std::string join_path(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  return path.append(folder).append("/").append(name);
}

}  // namespace morvane
