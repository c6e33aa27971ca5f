// Reads a package front to back. A package that ends early reads as zeros from there on: memory is
// taken for what the file holds, never for what it claims.
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

/// A list of as many items as a package claims to hold. Those that it does hold are present; one
/// beyond them looks like the item named so.
template <class Item>
struct claimed_list {
  std::size_t count = 0;
  std::vector<Item> present{};
  Item beyond{};

  const Item& operator[](std::size_t position) const {
    return position < present.size() ? present[position] : beyond;
  }
};

/// Lists of more bytes than this, and more than the file has, are refused.
inline constexpr std::int64_t largest_claim = std::int64_t{4} << 30;

/// Opens a package. Its file is closed when it cannot be opened.
package_reader open_package(const std::string& path);

/// Fills the bytes as far as the package goes. Returns how many were filled.
std::size_t read_package(package_reader& package, std::span<std::byte> bytes);

/// Whether at least so many bytes are left; a few, at most chunk_size.
bool holds_more(package_reader& package, std::size_t bytes);

/// Moves the next count bytes of the package to a file, as far as they are there. Without an open
/// file they are passed over.
void extract_bytes(package_reader& package, const file_handle& file, std::size_t count);

/// A count from a package as a number of items. Throws std::bad_array_new_length for one that is
/// negative as a signed number, and std::bad_alloc for one that no buffer could serve.
std::size_t checked_count(const package_reader& package, std::uint32_t count,
                          std::size_t item_size);

/// Reads a list of records. A record that is cut keeps what came of it. Throws as checked_count
/// does.
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
