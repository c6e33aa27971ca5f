// What the pack run reads in a header, and where: told by its own parsers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "cli/package/object_kind.h"
#include "format/macros.h"
#include "format/records.h"

namespace morvane::cli {

/// The macros of a kind.
std::span<const macro_row> macros_of(object_kind kind);

/// A value that a parser took: its place in the header, its length in bytes, and the macro's row in
/// the table of its kind.
struct taken_value {
  std::uint64_t place : 44;
  std::uint64_t length : 12;
  std::uint64_t row : 8;
};

/// A block, from the name in its introducing line to the line that ends it. The description of a
/// DAG counts as one block.
struct parsed_block {
  std::string_view name;    // lies in the header
  std::size_t end;          // the place of the line that ends it
  bool is_counted;          // by the parser that counts such blocks
  std::uint64_t taken = 0;  // the macros that have values, a bit for each row
};

/// What one parser read: all blocks of a kind.
struct kind_reading {
  std::vector<parsed_block> blocks{};
  std::vector<taken_value> values{};
  /// The place of the name that is too long, where the parser gave up; the end of the header if it
  /// did not.
  std::size_t stop = 0;
  bool is_stopped = false;
};

/// What all parsers read. The texts lie in the header.
struct header_reading {
  std::string_view header;
  dvi_desc dvi{};
  vproc_desc vproc{};           // if the vproc records are read
  std::string_view dag_name{};  // empty if there is none
  std::array<kind_reading, object_kinds> kinds{};

  [[nodiscard]] const kind_reading& of(object_kind kind) const {
    return kinds.at(static_cast<std::size_t>(kind));
  }
};

/// Takes the records of a header's blocks in the order of the package, each with the name of its
/// block, which lies in the header.
using record_sink =
    std::function<void(object_kind kind, std::string_view name, std::span<const std::byte> record)>;

/// Reads a header as the pack run does; the vproc records only with vproc. The index is that of the
/// DVI's file, the position that of the DVI in the package. Prints nothing.
header_reading read_header(std::string_view header, bool vproc, std::int32_t index,
                           std::size_t position, const record_sink& sink);

}  // namespace morvane::cli
