// The bytes of a package: mapped from a file, or read from a pipe.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/files/mapped_file.h"
#include "io/file.h"

namespace morvane::cli {

/// Owns the bytes of a package for as long as it lives; views of the package end with it.
class package_bytes {
 public:
  [[nodiscard]] std::span<const std::uint8_t> bytes() const { return bytes_; }

  /// The file that was read.
  [[nodiscard]] const file_identity& identity() const { return identity_; }

  /// Gives back the memory of so many bytes from an offset on, except the page in which they end.
  /// They can still be read, at the cost of reading them from the file again. Bytes that do not
  /// exist are ignored: another program may have changed the counts in the file.
  void release(std::size_t offset, std::uint64_t count) const;
  void release(std::span<const std::uint8_t> part) const {
    release(static_cast<std::size_t>(part.data() - bytes_.data()), part.size());
  }

  /// Asks the system for a large part of the bytes at once, instead of page by page where they are
  /// read. Does nothing for a small part.
  void fetch(std::span<const std::uint8_t> part) const;

  /// Has the system copy a part of the bytes from their file to a descriptor. Returns the number of
  /// bytes copied, which is smaller where the system cannot do that.
  [[nodiscard]] std::size_t copy(std::span<const std::uint8_t> part, int descriptor) const;

  /// Whether somebody made the file shorter since it was read.
  [[nodiscard]] bool are_cut() const { return mapped_ && mapped_->is_cut(); }

  /// The file that the bytes are mapped from; null for bytes that were read.
  [[nodiscard]] const mapped_file* mapped() const { return mapped_.get(); }

  /// Reads a file, or anything else that ends, such as a pipe; standard input for "-". Returns 0 or
  /// the errno of the failure; the bytes are then as they were.
  int load(const std::string& path);

  /// Reads an open file in the same way, a regular one from its beginning. A handle that is closed
  /// failed to open just now. The path is for messages.
  int load(file_handle file, std::string_view path);

 private:
  std::span<const std::uint8_t> bytes_{};
  file_identity identity_{};
  std::unique_ptr<mapped_file> mapped_{};
  std::vector<std::uint8_t> read_{};  // of what cannot be mapped
};

}  // namespace morvane::cli
