// Compares two records, or two lists of records, field by field.
#pragma once

#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "cli/diff/difference.h"
#include "cli/diff/matched_names.h"

namespace morvane::cli {

/// A record of two packages: what was read from it, and where its bytes are.
template <class Record>
struct record_pair {
  const Record& old_record;
  const Record& new_record;
  const std::uint8_t* old_bytes;
  const std::uint8_t* new_bytes;
};

/// Tells which fields differ. When none does but the bytes do, they differ behind a text.
template <class Record, std::size_t count>
void compare_fields(const compared_part& part, const record_pair<Record>& pair, std::size_t width,
                    const std::array<record_field<Record>, count>& fields,
                    const difference_sink& sink) {
  if (std::memcmp(pair.old_bytes, pair.new_bytes, width) == 0) {
    return;
  }
  bool is_shown = false;
  for (const record_field<Record>& field : fields) {
    const field_value old_value = field.value(pair.old_record);
    const field_value new_value = field.value(pair.new_record);
    if (old_value != new_value) {
      sink({part, field_change{field.name, old_value, new_value}});
      is_shown = true;
    }
  }
  if (!is_shown) {
    sink({part, hidden_change{}});
  }
}

/// Tells whether a record appeared, vanished or moved. Returns whether both packages have it.
inline bool compare_positions(const compared_part& part, const matched_name& match,
                              const difference_sink& sink) {
  if (!match.old_position) {
    sink({part, appeared{*match.new_position}});
  } else if (!match.new_position) {
    sink({part, vanished{*match.old_position}});
  } else if (*match.old_position != *match.new_position) {
    sink({part, moved{*match.old_position, *match.new_position}});
  }
  return match.old_position && match.new_position;
}

/// The records of one kind in a DVI; none where the DVI has none.
template <class Record>
struct record_list {
  const std::uint8_t* package = nullptr;
  std::vector<Record> records{};
};

/// What records of one kind have in common.
template <class Record, std::size_t count>
struct record_form {
  object_kind kind;
  std::size_t width;  // bytes
  morvane_text Record::*name;
  const std::array<record_field<Record>, count>& fields;
};

template <class Record>
std::vector<std::string_view> names_of(const std::vector<Record>& records,
                                       morvane_text Record::*name) {
  std::vector<std::string_view> names;
  names.reserve(records.size());
  for (const Record& record : records) {
    names.push_back(str(record.*name));
  }
  return names;
}

/// Compares the records of one kind in a DVI.
template <class Record, std::size_t count>
void compare_lists(const named_record& dvi, const record_form<Record, count>& form,
                   const record_list<Record>& old_list, const record_list<Record>& new_list,
                   const difference_sink& sink) {
  for (const matched_name& match :
       match_names(names_of(old_list.records, form.name), names_of(new_list.records, form.name))) {
    const compared_part part{form.kind, dvi, {match.name, match.occurrence}};
    if (compare_positions(part, match, sink)) {
      const Record& old_record = old_list.records[*match.old_position];
      const Record& new_record = new_list.records[*match.new_position];
      compare_fields(
          part,
          record_pair<Record>{old_record, new_record, old_list.package + old_record.offset,
                              new_list.package + new_record.offset},
          form.width, form.fields, sink);
    }
  }
}

}  // namespace morvane::cli
