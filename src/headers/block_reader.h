// Reads the blocks of a header into records. A block is a line that introduces it by a keyword and
// a name, and the lines after it that hold its marker. Ports, SMBs and variables are all written
// so.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "format/length_limits.h"
#include "format/macros.h"
#include "headers/line_reader.h"

namespace morvane {

/// What tells one kind of block from another.
struct block_format {
  std::string_view keyword;      // introduces a block: the token after it is the block's name
  std::string_view marker_lead;  // a line of the block holds this, the name and "_"
  length_limit name_limit;
  std::size_t name_offset;  // of the record's name field, which is as wide as the limit tells
  std::span<const macro_row> macros;
};

/// Reads the block of a name into its record; the reader stands after the introducing line. The
/// line that ends the block, and blank lines before it, are left to be read again, as that line may
/// introduce the next block. Returns 0; or -1 for a name or a layer name that is too long, with its
/// message.
int read_block(line_reader& lines, const block_format& format, std::string_view name,
               std::span<std::byte> record);

/// Appends a record for every block of a header; each begins as the empty record. Returns 0; or -1,
/// with its message, at a name that is too long, whose record is not appended.
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
