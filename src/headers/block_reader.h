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
#include "headers/length_check.h"
#include "headers/line_reader.h"
#include "headers/macro_values.h"
#include "headers/reading_observer.h"

namespace morvane {

/// The differences between the kinds of blocks.
struct block_format {
  std::string_view keyword;      // introduces a block: the token after it is the block's name
  std::string_view marker_lead;  // the marker is this, the name and "_"
  length_limit name_limit;
  std::size_t name_offset;  // of the record's name field, one byte wider than the limit
  std::span<const macro_row> macros;
};

/// Whether the line contains the marker of the block of the name.
bool holds_marker(const named_line& named, std::string_view lead);

/// Reads the block of a name into its record. The reader must be after the introducing line. It
/// is then before the line that ends the block, and before blank lines above it, as that line
/// may introduce the next block. Returns 0; for a name or a layer name that is too long, prints a
/// message and returns -1.
template <class Observer>
int read_block(line_reader& lines, const block_format& format, std::string_view name,
               std::span<std::byte> record, Observer& observer) {
  observer.begin_block(name);
  if (check_length_limit(name, format.name_limit) != 0) {
    return -1;
  }
  store_text(record.subspan(format.name_offset, format.name_limit.longest + 1), name);
  named_line named{.line = {}, .name = name, .rests = {}};
  std::size_t after_block = lines.next;
  std::string_view line;
  while (next_line(lines, line)) {
    set_line(named, line);
    if (!holds_marker(named, format.marker_lead) ||
        line.find(format.keyword) != std::string_view::npos) {
      lines.next = after_block;
      observer.end_block(line);
      return 0;
    }
    after_block = lines.next;
    const macro_match match = find_macro(named, format.macros);
    observer.read_line(line, match);
    if (store_match(match, record) != 0) {
      return -1;
    }
  }
  observer.end_block(lines.text.substr(lines.text.size()));
  return 0;
}

// The pack run's copy of the code is in block_reader.cpp.
extern template int read_block(line_reader&, const block_format&, std::string_view,
                               std::span<std::byte>, const no_observer&);

/// Appends a record for every block of a header. Each record begins as a copy of the empty one.
/// Returns 0. At a name that is too long, prints a message, does not append its record, and
/// returns -1.
template <class Records, class Observer>
int read_blocks(std::string_view header, const block_format& format,
                const typename Records::value_type& empty, Records& records, Observer& observer) {
  line_reader lines{header};
  std::string_view name;
  while (next_value(lines, format.keyword, name)) {
    records.push_back(empty);
    if (read_block(lines, format, name, bytes_of(records.back()), observer) != 0) {
      records.pop_back();
      return -1;
    }
  }
  return 0;
}

/// The same, without an observer.
template <class Record>
int read_blocks(std::string_view header, const block_format& format, const Record& empty,
                std::vector<Record>& records) {
  const no_observer nobody;
  return read_blocks(header, format, empty, records, nobody);
}

}  // namespace morvane
