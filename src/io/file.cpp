#include "io/file.h"

#include <fcntl.h>
#include <poll.h>
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

/// Fills the bytes with what calls of read give, each for the rest, until a call gives nothing or
/// fails.
template <class Read>
bytes_read filled_by(std::span<std::byte> bytes, Read read) {
  bytes_read filled;
  ssize_t got = 1;
  while (got > 0 && filled.count < bytes.size()) {
    got = uninterrupted([&] { return read(bytes.subspan(filled.count), filled.count); });
    filled.count += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  filled.error = got < 0 ? errno : 0;
  return filled;
}

/// Waits until a stream in non-blocking mode takes bytes again. Returns whether it may.
bool wait_for_room(int descriptor) {
  pollfd stream{.fd = descriptor, .events = POLLOUT, .revents = 0};
  return uninterrupted([&] { return ::poll(&stream, 1, -1); }) > 0;
}

}  // namespace

file_handle::~file_handle() {
  if (is_open()) {
    ::close(descriptor_);
  }
}

file_identity identity_in(const struct stat& status) {
  return {.device = status.st_dev, .inode = status.st_ino};
}

std::optional<struct stat> status_of(const file_handle& file) {
  struct stat status {};
  if (!file.is_open() || ::fstat(file.descriptor(), &status) != 0) {
    return std::nullopt;
  }
  return status;
}

std::optional<file_identity> identity_at(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    return std::nullopt;
  }
  return identity_in(status);
}

file_handle open_at(int folder, const std::string& path, int flags) {
  const auto open = [&](int chosen_flags) {
    return uninterrupted([&] {
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's interface
      return ::openat(folder, path.c_str(), chosen_flags | O_CLOEXEC, created_mode);
    });
  };
  int descriptor = open(flags);
  // Only a lease refuses so: the open that waits makes its holder give it up.
  if (descriptor < 0 && errno == EWOULDBLOCK && (flags & O_NONBLOCK) != 0) {
    descriptor = open(flags & ~O_NONBLOCK);
  }
  return file_handle(descriptor);
}

readable_file open_to_read(const std::string& path) {
  readable_file file{.handle = open_at(AT_FDCWD, path, O_RDONLY | O_NONBLOCK)};
  const std::optional<struct stat> status = status_of(file.handle);
  if (!status) {
    return {.handle = file_handle()};
  }
  file.identity = identity_in(*status);
  if (S_ISREG(status->st_mode)) {
    file.size = status->st_size;
  } else {
    // Only the opening must not wait. NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): as above
    ::fcntl(file.handle.descriptor(), F_SETFL, O_RDONLY);
  }
  return file;
}

writable_file open_to_write(const std::string& path) {
  writable_file file{.handle = open_at(AT_FDCWD, path, O_WRONLY | O_CREAT | O_EXCL)};
  file.is_new = file.handle.is_open();
  if (file.is_new || errno != EEXIST) {
    return file;
  }
  file.handle = open_at(AT_FDCWD, path, O_WRONLY | O_CREAT);
  const std::optional<struct stat> status = status_of(file.handle);
  if (!status) {
    return {.handle = file_handle()};
  }
  file.identity = identity_in(*status);
  return file;
}

bool empty_file(const file_handle& file) {
  // EINVAL: a device or a pipe.
  return file.is_open() &&
         (uninterrupted([&] { return ::ftruncate(file.descriptor(), 0); }) == 0 || errno == EINVAL);
}

bytes_read read_bytes(const file_handle& file, std::span<std::byte> bytes) {
  return filled_by(bytes, [&](std::span<std::byte> rest, std::size_t /*filled*/) {
    return ::read(file.descriptor(), rest.data(), rest.size());
  });
}

bytes_read read_bytes_at(const file_handle& file, off_t offset, std::span<std::byte> bytes) {
  return filled_by(bytes, [&](std::span<std::byte> rest, std::size_t filled) {
    return ::pread(file.descriptor(), rest.data(), rest.size(),
                   offset + static_cast<off_t>(filled));
  });
}

std::size_t write_bytes(int descriptor, std::span<const std::byte> bytes) {
  std::size_t written = 0;
  while (written < bytes.size()) {
    const auto rest = bytes.subspan(written);
    const ssize_t put =
        uninterrupted([&] { return ::write(descriptor, rest.data(), rest.size()); });
    if (put > 0) {
      written += static_cast<std::size_t>(put);
      continue;
    }
    if (put == 0) {
      errno = EIO;
    }
    if (errno != EAGAIN || !wait_for_room(descriptor)) {
      break;
    }
  }
  return written;
}

std::size_t write_bytes(const file_handle& file, std::span<const std::byte> bytes) {
  return write_bytes(file.descriptor(), bytes);
}

std::size_t copy_file_bytes(const file_handle& from, off_t* offset, int to, std::size_t count) {
  std::size_t copied = 0;
  while (copied < count) {
    const ssize_t got =
        ::copy_file_range(from.descriptor(), offset, to, nullptr, count - copied, 0);
    if (got <= 0) {
      break;
    }
    copied += static_cast<std::size_t>(got);
  }
  return copied;
}

file_content read_file(const std::string& path) {
  const readable_file file = open_to_read(path);
  return file.handle.is_open() ? read_file(file) : file_content{.error = errno};
}

file_content read_file(const readable_file& file) {
  file_content content;
  std::string& text = content.text;
  // What has no size of its own, or says 0 as the files of the kernel do, is read until it ends.
  const std::size_t step = file.size > 0 ? static_cast<std::size_t>(file.size) : chunk_size;
  std::size_t filled = 0;
  do {
    text.resize(filled + step);
    const bytes_read got =
        read_bytes(file.handle, std::as_writable_bytes(std::span(text).subspan(filled)));
    filled += got.count;
    content.error = got.error;
  } while (filled == text.size() && file.size <= 0);
  text.resize(filled);
  return content;
}

std::string join_path(std::string_view folder, std::string_view name) {
  std::string path;
  path.reserve(folder.size() + 1 + name.size());
  return path.append(folder).append("/").append(name);
}

}  // namespace morvane
