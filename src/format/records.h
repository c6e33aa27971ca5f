// The short names of the package records, and the texts inside the records.
#pragma once

#include <morvane/package_format.h>

#include <bit>
#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>

namespace morvane {

static_assert(std::endian::native == std::endian::little,
              "records are written as they are in memory, and a package is little-endian");

using pkg_header = morvane_pkg_header;  // 12 bytes
using dvi_desc = morvane_dvi_desc;      // 156 bytes
using port_desc = morvane_port_desc;    // 1080 bytes
using vproc_desc = morvane_vproc_desc;  // 12 bytes
using var_desc = morvane_var_desc;      // 136 bytes
using smb_desc = morvane_smb_desc;      // 132 bytes

/// The bytes of a record in a package.
template <class Record>
std::span<std::byte> bytes_of(Record& record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  return std::as_writable_bytes(std::span(&record, 1));
}
template <class Record>
std::span<const std::byte> bytes_of(const Record& record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  return std::as_bytes(std::span(&record, 1));
}

/// The text of a record's field: up to the first NUL, or the whole field if it has none.
inline std::string_view text_of(std::span<const char> field) {
  const std::string_view whole(field.data(), field.size());
  return whole.substr(0, whole.find('\0'));
}

}  // namespace morvane
