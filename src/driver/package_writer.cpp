#include "driver/package_writer.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "io/message.h"

namespace morvane {

namespace {

/// The part of the buffer that takes the next bytes, never empty.
std::span<std::byte> free_space(package_writer& package) {
  if (package.waiting == package.buffer.size()) {
    flush_package(package);
  }
  return std::span(package.buffer).subspan(package.waiting);
}

/// Removes the bytes of the package after a position. Bytes that went into a pipe cannot be
/// removed.
void cut_back(package_writer& package, std::uint64_t position) {
  if (position >= package.written) {
    package.waiting = position - package.written;
    return;
  }
  package.waiting = 0;
  const auto end = static_cast<off_t>(position);
  if (::ftruncate(package.file.descriptor(), end) == 0 &&
      ::lseek(package.file.descriptor(), end, SEEK_SET) == end) {
    package.written = position;
  }
}

void add_written(package_writer& package, std::size_t count) {
  package.written += count;
  if (package.watch.tell != nullptr) {
    package.watch.tell(package.watch.state, package.written);
  }
}

/// Has the system move up to count bytes from a file to the package. Returns how many it moved.
std::size_t copy_by_system(package_writer& package, const file_handle& file, std::size_t count) {
  if (count < system_copy_size) {
    return 0;
  }
  constexpr std::size_t part_size = 64 * chunk_size;
  flush_package(package);
  std::size_t copied = 0;
  std::size_t got = 1;
  while (got > 0) {
    got = copy_file_bytes(file, nullptr, package.file.descriptor(),
                          std::min(part_size, count - copied));
    copied += got;
    add_written(package, got);
  }
  return copied;
}

/// Moves up to count bytes from a file to the package. Returns how many there were.
std::size_t copy_bytes(package_writer& package, const file_handle& file, std::size_t count) {
  std::size_t copied = copy_by_system(package, file, count);
  while (copied < count) {
    std::span<std::byte> space = free_space(package);
    space = space.first(std::min(space.size(), count - copied));
    const bytes_read got = read_bytes(file, space);
    package.waiting += got.count;
    copied += got.count;
    package.read_error = got.error;
    if (got.count < space.size()) {
      break;
    }
  }
  return copied;
}

}  // namespace

void append_bytes(package_writer& package, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const std::span<std::byte> space = free_space(package);
    const auto part = bytes.first(std::min(space.size(), bytes.size()));
    std::ranges::copy(part, space.begin());
    package.waiting += part.size();
    bytes = bytes.subspan(part.size());
  }
}

int read_file_bytes(package_writer& package, const std::string& path, std::int32_t count) {
  const readable_file file = open_to_read(path);
  if (!file.handle.is_open()) {
    package.read_error = errno;
    return report_open_failure(path);
  }
  // A negative count is more than any file holds. The size of a short file is known before a byte
  // is copied. If a file has no size, or shrinks, its bytes are removed again.
  const std::uint64_t begin = package.written + package.waiting;
  const bool refused = count < 0 || (file.size > 0 && file.size < count);
  if (refused || copy_bytes(package, file.handle, static_cast<std::size_t>(count)) <
                     static_cast<std::size_t>(count)) {
    cut_back(package, begin);
    print_line("error: fail to read ", count, " bytes from ", path);
    return -1;
  }
  return 0;
}

void flush_package(package_writer& package) {
  const auto bytes = std::span(package.buffer).first(package.waiting);
  if (write_bytes(package.file, bytes) < bytes.size() && package.write_error == 0) {
    package.write_error = errno;
  }
  package.waiting = 0;
  add_written(package, bytes.size());
}

void close_package(package_writer& package) {
  flush_package(package);
  package.file = file_handle();
}

}  // namespace morvane
