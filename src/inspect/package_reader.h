// Reads a package from front to back. Bytes after the end of the file read as zeros. Memory is
// allocated for what the file holds, never for what it claims.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <span>
#include <string>
#include <vector>

#include "format/records.h"
#include "io/file.h"

namespace morvane {

/// A package that is being read.
struct package_reader {
  file_handle file;
  file_identity identity{};
  std::int64_t size = -1;  // bytes of a regular file, -1 for anything else
  std::vector<std::byte> buffer = std::vector<std::byte>(chunk_size);
  std::size_t begin = 0;  // the bytes of the buffer that are still to be read
  std::size_t end = 0;
};

/// A list with as many items as a package claims to hold. Items that the file holds are present;
/// every other item is equal to beyond.
template <class Item>
struct claimed_list {
  std::size_t count = 0;
  std::vector<Item> present{};
  Item beyond{};

  const Item& operator[](std::size_t position) const {
    return position < present.size() ? present[position] : beyond;
  }
};

/// A list with more bytes than this, and more than the file has, is refused.
inline constexpr std::int64_t largest_claim = std::int64_t{4} << 30;

/// Opens a package. If it cannot be opened, its file is closed.
package_reader open_package(const std::string& path);

/// Fills the bytes until the package ends. Returns the number of bytes filled.
std::size_t read_package(package_reader& package, std::span<std::byte> bytes);

/// Whether at least this number of bytes is left. The number must not exceed chunk_size.
bool holds_more(package_reader& package, std::size_t bytes);

/// Moves the next count bytes of the package to a file, or fewer if the package ends. If the file
/// is closed, the bytes are skipped.
void extract_bytes(package_reader& package, const file_handle& file, std::size_t count);

/// A count from a package as a number of items. Throws std::bad_array_new_length if the count is
/// negative as a signed number, and std::bad_alloc if it is too large to allocate.
std::size_t checked_count(const package_reader& package, std::uint32_t count,
                          std::size_t item_size);

/// Reads a list of records. An incomplete record keeps the bytes that were read. Throws as
/// checked_count does.
template <class Record>
claimed_list<Record> read_records(package_reader& package, std::uint32_t count) {
  claimed_list<Record> records{.count = checked_count(package, count, sizeof(Record))};
  const std::size_t step = std::max<std::size_t>(chunk_size / sizeof(Record), 1);
  bool whole = true;
  while (whole && records.present.size() < records.count) {
    const std::size_t first = records.present.size();
    records.present.resize(std::min(records.count, first + step));
    const auto bytes = std::as_writable_bytes(std::span(records.present).subspan(first));
    const std::size_t got = read_package(package, bytes);
    whole = got == bytes.size();
    records.present.resize(first + (got + sizeof(Record) - 1) / sizeof(Record));
  }
  return records;
}

}  // namespace morvane
