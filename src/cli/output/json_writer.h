// JSON, written while it is made: what was written needs no memory any more.
#pragma once

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "cli/output/console.h"
#include "io/message.h"

namespace morvane::cli {

/// Where JSON goes, and where in it the writer is. Records in arrays get a line of their own.
struct json_writer {
  console& streams;
  int depth = 0;         // arrays that are open
  bool is_first = true;  // nothing is written yet in the innermost object or array
};

/// A text as a JSON string in ASCII, between quotes: nothing in it does anything to a terminal.
/// What is not UTF-8 becomes U+FFFD.
std::string json_string(std::string_view text);

/// A value that is nothing.
struct json_null {};

/// Writes the comma and the line that an element of an array needs.
void begin_element(json_writer& json);

/// Writes the comma and the name of a member of an object. Names need no escapes; so below.
void begin_member(json_writer& json, std::string_view name);

/// Opens and closes the document, an element of an array or a member. An array is no element.
void begin_object(json_writer& json);
void begin_object(json_writer& json, std::string_view name);
void end_object(json_writer& json);
void begin_array(json_writer& json);
void begin_array(json_writer& json, std::string_view name);
void end_array(json_writer& json);

/// Ends the document, with a line feed.
void end_document(json_writer& json);

/// The value of a member, or an element.
void write_value(json_writer& json, std::string_view text);
void write_value(json_writer& json, const char* text);
void write_value(json_writer& json, bool value);
void write_value(json_writer& json, json_null null);
void write_value(json_writer& json, std::span<const std::uint32_t> numbers);

template <std::integral Number>
void write_value(json_writer& json, Number number) {
  morvane::append_piece(json.streams.pending, number);
}

/// Writes a member of an object.
template <class Value>
void write_member(json_writer& json, std::string_view name, const Value& value) {
  begin_member(json, name);
  write_value(json, value);
}

}  // namespace morvane::cli
