#include "inspect/package_reader.h"

#include <limits>

namespace morvane {

namespace {

std::span<const std::byte> buffered(const package_reader& package) {
  return std::span(package.buffer).subspan(package.begin, package.end - package.begin);
}

/// Moves the unread bytes to the front of the buffer and fills the rest from the file.
void refill(package_reader& package) {
  const std::span<const std::byte> left = buffered(package);
  std::ranges::copy(left, package.buffer.begin());
  package.begin = 0;
  package.end = left.size();
  package.end += read_bytes(package.file, std::span(package.buffer).subspan(package.end)).count;
}

/// Takes up to count bytes from the package, none at its end. They are valid until the next call.
std::span<const std::byte> take_bytes(package_reader& package, std::size_t count) {
  if (package.begin == package.end) {
    refill(package);
  }
  const auto bytes = buffered(package).first(std::min(count, package.end - package.begin));
  package.begin += bytes.size();
  return bytes;
}

/// Moves the bytes of the buffer to a file, and has the system move those after them, count in all.
/// Returns how many were moved.
std::size_t extract_by_system(package_reader& package, const file_handle& file, std::size_t count) {
  static_assert(system_copy_size >= chunk_size, "the buffer holds no more than what is asked for");
  const auto ahead = buffered(package);
  write_bytes(file, ahead);
  package.begin = package.end;
  return ahead.size() +
         copy_file_bytes(package.file, nullptr, file.descriptor(), count - ahead.size());
}

}  // namespace

package_reader open_package(const std::string& path) {
  readable_file file = open_to_read(path);
  return {.file = std::move(file.handle), .identity = file.identity, .size = file.size};
}

std::size_t read_package(package_reader& package, std::span<std::byte> bytes) {
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const auto part = take_bytes(package, bytes.size() - filled);
    if (part.empty()) {
      break;
    }
    std::ranges::copy(part, bytes.subspan(filled).begin());
    filled += part.size();
  }
  return filled;
}

bool holds_more(package_reader& package, std::size_t bytes) {
  if (buffered(package).size() < bytes) {
    refill(package);
  }
  return buffered(package).size() >= bytes;
}

void extract_bytes(package_reader& package, const file_handle& file, std::size_t count) {
  if (file.is_open() && count >= system_copy_size) {
    count -= extract_by_system(package, file, count);
  }
  while (count > 0) {
    const auto part = take_bytes(package, count);
    if (part.empty()) {
      break;
    }
    if (file.is_open()) {
      write_bytes(file, part);
    }
    count -= part.size();
  }
}

std::size_t checked_count(const package_reader& package, std::uint32_t count,
                          std::size_t item_size) {
  if (count > std::uint32_t{std::numeric_limits<std::int32_t>::max()}) {
    throw std::bad_array_new_length();
  }
  const std::int64_t claim = std::int64_t{count} * static_cast<std::int64_t>(item_size);
  if (claim > std::max(package.size, largest_claim)) {
    throw std::bad_alloc();
  }
  return count;
}

}  // namespace morvane
