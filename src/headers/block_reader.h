// Reads the blocks of a header into records. A line with a keyword and a name introduces a block.
// The lines after it that contain the block's marker belong to the block. Ports, SMBs and variables
// have this form.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "format/length_limits.h"
#include "format/macros.h"
#include "headers/line_reader.h"

namespace morvane {

/// The differences between the kinds of blocks.
struct block_format {
  std::string_view keyword;      // introduces a block: the token after it is the block's name
  std::string_view marker_lead;  // the marker is this, the name and "_"
  length_limit name_limit;
  std::size_t name_offset;  // of the record's name field, one byte wider than the limit
  std::span<const macro_row> macros;
};

/// Reads the block of a name into its record. The reader must be after the introducing line. It
/// is then before the line that ends the block, and before blank lines above it, as that line
/// may introduce the next block. Returns 0; for a name or a layer name that is too long, prints a
/// message and returns -1.
int read_block(line_reader& lines, const block_format& format, std::string_view name,
               std::span<std::byte> record);

/// Appends a record for every block of a header. Each record begins as a copy of the empty one.
/// Returns 0. At a name that is too long, prints a message, does not append its record, and
/// returns -1.
template <class Record>
int read_blocks(std::string_view header, const block_format& format, const Record& empty,
                std::vector<Record>& records) {
  line_reader lines{header};
  std::string_view name;
  while (next_value(lines, format.keyword, name)) {
    records.push_back(empty);
    if (read_block(lines, format, name, bytes_of(records.back())) != 0) {
      records.pop_back();
      return -1;
    }
  }
  return 0;
}

}  // namespace morvane
