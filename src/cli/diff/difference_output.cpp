#include "cli/diff/difference_output.h"

#include <cctype>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// How JSON calls a part: "dvi", "smb".
std::string json_name(object_kind kind) {
  std::string name(name_of(kind));
  for (char& character : name) {
    character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
  }
  return name;
}

/// Parts of a DVI that have a name of their own.
bool is_named_record(object_kind kind) {
  return kind >= object_kind::input && kind <= object_kind::smb;
}

/// "DVI "net"", or "DVI "net" #2" for the second one.
std::string part_text(object_kind kind, const named_record& record) {
  std::string text = joined(name_of(kind), " ", in_quotes(record.name));
  if (record.occurrence > 1) {
    append_pieces(text, " #", record.occurrence);
  }
  return text;
}

std::string part_text(const compared_part& part) {
  if (part.kind == object_kind::package) {
    return std::string(name_of(part.kind));
  }
  std::string text = part_text(object_kind::dvi, part.dvi);
  if (part.kind == object_kind::image) {
    append_pieces(text, ": ", name_of(part.kind));
  } else if (is_named_record(part.kind)) {
    append_pieces(text, ": ", part_text(part.kind, part.record));
  }
  return text;
}

struct value_text {
  std::string operator()(std::int64_t number) const { return joined(number); }
  std::string operator()(std::string_view text) const { return in_quotes(text); }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(number_pair numbers) const {
    return joined("[", numbers[0], ", ", numbers[1], "]");
  }
};

struct change_text {
  std::string operator()(const appeared& change) const {
    return joined("appeared at position ", change.new_position);
  }
  std::string operator()(const vanished& change) const {
    return joined("vanished from position ", change.old_position);
  }
  std::string operator()(const moved& change) const {
    return joined("moved from position ", change.old_position, " to ", change.new_position);
  }
  std::string operator()(const field_change& change) const {
    return joined(change.field, ": ", std::visit(value_text{}, change.old_value), " -> ",
                  std::visit(value_text{}, change.new_value));
  }
  std::string operator()(const hidden_change& /*change*/) const {
    return "bytes after the NUL of a text differ";
  }
  std::string operator()(const byte_difference& change) const {
    const bool is_resized = change.new_size != change.old_size;
    return joined(is_resized ? joined(change.old_size, " -> ") : "",
                  count_of(change.new_size, "byte"), ", ", change.count,
                  change.count == 1 ? " differs" : " differ", ", the first at ",
                  hexadecimal(change.first));
  }
};

struct change_members {
  json_writer& json;

  void operator()(const appeared& change) const {
    write_member(json, "change", "appeared");
    write_member(json, "new_position", change.new_position);
  }
  void operator()(const vanished& change) const {
    write_member(json, "change", "vanished");
    write_member(json, "old_position", change.old_position);
  }
  void operator()(const moved& change) const {
    write_member(json, "change", "moved");
    write_member(json, "old_position", change.old_position);
    write_member(json, "new_position", change.new_position);
  }
  void operator()(const field_change& change) const {
    write_member(json, "change", "field");
    write_member(json, "field", change.field);
    std::visit([&](auto value) { write_member(json, "old", value); }, change.old_value);
    std::visit([&](auto value) { write_member(json, "new", value); }, change.new_value);
  }
  void operator()(const hidden_change& /*change*/) const {
    write_member(json, "change", "after_nul");
  }
  void operator()(const byte_difference& change) const {
    write_member(json, "change", "bytes");
    write_member(json, "old_size", change.old_size);
    write_member(json, "new_size", change.new_size);
    write_member(json, "first_offset", change.first);
    write_member(json, "differing_bytes", change.count);
  }
};

}  // namespace

std::string difference_line(const difference& found) {
  return joined(part_text(found.part), ": ", std::visit(change_text{}, found.change), "\n");
}

void write_difference_object(json_writer& json, const difference& found) {
  begin_object(json);
  write_member(json, "part", json_name(found.part.kind));
  if (found.part.kind != object_kind::package) {
    write_member(json, "dag_name", found.part.dvi.name);
    write_member(json, "dag_occurrence", found.part.dvi.occurrence);
  }
  if (is_named_record(found.part.kind)) {
    write_member(json, "name", found.part.record.name);
    write_member(json, "occurrence", found.part.record.occurrence);
  }
  std::visit(change_members{json}, found.change);
  end_object(json);
}

}  // namespace morvane::cli
