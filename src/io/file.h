// Files of the operating system: open, read, write, close. Nothing here prints.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
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

/// From how many bytes on the system copies them by itself. Fewer go through the buffer, together
/// with what comes before and after them.
inline constexpr std::size_t system_copy_size = 4 * chunk_size;

/// What makes a file the same file under all its names.
struct file_identity {
  dev_t device = 0;
  ino_t inode = 0;
  bool operator==(const file_identity&) const = default;
};

file_identity identity_in(const struct stat& status);

/// The state of an open file; nothing if it is not open.
std::optional<struct stat> status_of(const file_handle& file);

/// The identity of the file at a path, after symbolic links; nothing if there is no file.
std::optional<file_identity> identity_at(const std::string& path);

/// Opens a path with the flags of open(2), and closes it on exec. A relative path starts at the
/// folder, an open descriptor or AT_FDCWD. Waits for a file that another program holds a lease on.
/// If the file cannot be opened, the handle is closed and errno holds the reason.
file_handle open_at(int folder, const std::string& path, int flags);

/// A file to read, what it is, and its size.
struct readable_file {
  file_handle handle;
  file_identity identity{};
  std::int64_t size = -1;  // bytes of a regular file, -1 for anything else
};

/// Opens a file to read. Does not wait for the writer of a named pipe: without one, the pipe is
/// empty. The handle is closed if the file cannot be opened.
readable_file open_to_read(const std::string& path);

/// A file to write, and whether it was created for that.
struct writable_file {
  file_handle handle;
  file_identity identity{};  // of a file that existed already
  bool is_new = false;
};

/// Creates a file to write, or opens the existing file without changing its content. The handle is
/// closed if the file cannot be opened.
writable_file open_to_write(const std::string& path);

/// Removes the content of an open file. A device or a pipe has no content. Returns whether the file
/// is empty now.
bool empty_file(const file_handle& file);

/// How many bytes were read, and the errno of the failure that ended them early; 0 if there was
/// none.
struct bytes_read {
  std::size_t count = 0;
  int error = 0;
};

/// Reads until the bytes are filled, the file ends or a read fails.
bytes_read read_bytes(const file_handle& file, std::span<std::byte> bytes);

/// Reads in the same way from an offset on. Does not move the position of the file.
bytes_read read_bytes_at(const file_handle& file, off_t offset, std::span<std::byte> bytes);

/// Writes all bytes. Waits while a stream in non-blocking mode is full. Returns the number of bytes
/// written, which is smaller after an error; errno then holds the reason.
std::size_t write_bytes(int descriptor, std::span<const std::byte> bytes);
std::size_t write_bytes(const file_handle& file, std::span<const std::byte> bytes);

/// Has the system copy bytes from one open file to another, which moves them once instead of twice.
/// Starts at the offset and moves it, or at the position of the file if there is no offset. Returns
/// the number of bytes copied. It is smaller at the end of the file, after an error, and for pipes
/// and devices, which the system does not copy: the caller reads and writes the rest.
std::size_t copy_file_bytes(const file_handle& from, off_t* offset, int to, std::size_t count);

/// What was read of a file, and the errno of what kept the rest from being read; 0 for a whole
/// file.
struct file_content {
  std::string text{};
  int error = 0;
};

/// What an open file holds, from its position to its end.
file_content read_file(const readable_file& file);

/// The content of the file at a path; nothing of a folder or a file that cannot be opened.
file_content read_file(const std::string& path);

/// FOLDER/NAME. The slash is always added.
std::string join_path(std::string_view folder, std::string_view name);

}  // namespace morvane
