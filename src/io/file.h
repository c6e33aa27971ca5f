// Files of the operating system: open, read, write, close. Nothing here prints.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

namespace morvane {

/// Owns a file descriptor and closes it at the end of its scope.
class file_handle {
 public:
  explicit file_handle(int descriptor = -1) : descriptor_(descriptor) {}
  file_handle(file_handle&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  file_handle& operator=(file_handle&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  file_handle(const file_handle&) = delete;
  file_handle& operator=(const file_handle&) = delete;
  ~file_handle();

  [[nodiscard]] bool is_open() const { return descriptor_ >= 0; }
  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

/// How many bytes are moved at a time, from a file or to it.
inline constexpr std::size_t chunk_size = std::size_t{256} * 1024;

/// A file to read, and its size.
struct readable_file {
  file_handle handle;
  std::int64_t size = -1;  // bytes of a regular file, -1 for anything else
};

/// Opens a file to read. A named pipe that nobody writes to reads as empty instead of waiting for a
/// writer. The handle is closed when the file cannot be opened; so below.
readable_file open_to_read(const std::string& path);

/// Creates or empties a file to write.
file_handle open_to_write(const std::string& path);

/// The same, but fails at a symbolic link in the file's place: nothing is written elsewhere; so
/// below.
file_handle open_to_write_in_place(const std::string& path);

/// Opens a file to write at its end, and creates it when it is missing.
file_handle open_to_append_in_place(const std::string& path);

/// Reads until the bytes are filled or the file ends; an unreadable file ends at once. Returns the
/// number of bytes read.
std::size_t read_bytes(const file_handle& file, std::span<std::byte> bytes);

/// Writes all bytes. What the system refuses is lost without a word: nobody checks for a full disk.
void write_bytes(const file_handle& file, std::span<const std::byte> bytes);

/// The whole content of a file. One that cannot be opened, or a folder, reads as empty.
std::string read_file(const std::string& path);

/// FOLDER/NAME. The slash is always added.
std::string join_path(std::string_view folder, std::string_view name);

}  // namespace morvane
