// A file that is mapped into memory, and what happens when it cannot be read any more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "io/file.h"

namespace morvane::cli {

/// Maps an open file for as long as it lives.
class mapped_file {
 public:
  /// Maps so many bytes from the beginning of a file. The path is for messages.
  mapped_file(file_handle file, std::size_t size, std::string_view path);
  mapped_file(const mapped_file&) = delete;
  mapped_file& operator=(const mapped_file&) = delete;
  mapped_file(mapped_file&&) = delete;
  mapped_file& operator=(mapped_file&&) = delete;
  ~mapped_file();

  /// Empty where the system cannot map the file.
  [[nodiscard]] std::span<const std::uint8_t> bytes() const { return bytes_; }
  [[nodiscard]] const file_handle& file() const { return file_; }

  /// Whether somebody made the file shorter since it was mapped.
  [[nodiscard]] bool is_cut() const;

 private:
  friend const mapped_file* mapped_file_at(const void* address);
  friend int report_lost_bytes(const mapped_file& file);

  file_handle file_;
  std::span<const std::uint8_t> bytes_{};
  std::string path_;
  mapped_file* older_;  // the one that was mapped before and still is
};

/// The mapped file that an address belongs to; null if there is none.
const mapped_file* mapped_file_at(const void* address);

/// Prints why a mapped file cannot be read any more: it was cut, or its disk fails. Returns
/// status_failed.
int report_lost_bytes(const mapped_file& file);

/// From here on, a mapped file that somebody cuts, or whose disk fails, ends the program with
/// status_failed and a message that names the file, and without its temporary files.
void end_at_lost_bytes();

}  // namespace morvane::cli
