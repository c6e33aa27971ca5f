#include "cli/output/json_writer.h"

#include <nlohmann/json.hpp>

namespace morvane::cli {

namespace {

void open(json_writer& json, char bracket) {
  json.streams.pending += bracket;
  json.is_first = true;
}

void close(json_writer& json, char bracket) {
  json.is_first = false;
  print_result(json.streams, {&bracket, 1});
}

}  // namespace

std::string json_string(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', true, nlohmann::json::error_handler_t::replace);
}

void begin_element(json_writer& json) {
  std::string& text = json.streams.pending;
  text += json.is_first ? "\n" : ",\n";
  text.append(static_cast<std::size_t>(json.depth) * 2, ' ');
  json.is_first = false;
}

void begin_member(json_writer& json, std::string_view name) {
  append_pieces(json.streams.pending, json.is_first ? "\"" : ", \"", name, "\": ");
  json.is_first = false;
}

void begin_object(json_writer& json) {
  if (json.depth > 0) {
    begin_element(json);
  }
  open(json, '{');
}

void begin_object(json_writer& json, std::string_view name) {
  begin_member(json, name);
  open(json, '{');
}

void end_object(json_writer& json) {
  close(json, '}');
}

void begin_array(json_writer& json) {
  open(json, '[');
  ++json.depth;
}

void begin_array(json_writer& json, std::string_view name) {
  begin_member(json, name);
  begin_array(json);
}

void end_array(json_writer& json) {
  --json.depth;
  close(json, ']');
}

void end_document(json_writer& json) {
  print_result(json.streams, "\n");
}

void write_value(json_writer& json, std::string_view text) {
  json.streams.pending += json_string(text);
}

void write_value(json_writer& json, const char* text) {
  write_value(json, std::string_view(text));
}

void write_value(json_writer& json, bool value) {
  json.streams.pending += value ? "true" : "false";
}

void write_value(json_writer& json, json_null /*null*/) {
  json.streams.pending += "null";
}

void write_value(json_writer& json, std::span<const std::uint32_t> numbers) {
  std::string_view before;
  json.streams.pending += '[';
  for (const std::uint32_t number : numbers) {
    append_pieces(json.streams.pending, before, number);
    before = ", ";
  }
  json.streams.pending += ']';
}

}  // namespace morvane::cli
