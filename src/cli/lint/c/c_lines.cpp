#include "cli/lint/c/c_lines.h"

#include "cli/lint/c/c_conditions.h"
#include "cli/lint/c/c_text.h"

namespace morvane::cli {

namespace {

/// Editors put it at the start of a file, and compilers skip it.
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

bool ends_in_backslash(std::string_view line) {
  while (!line.empty() && is_white(line.back())) {
    line.remove_suffix(1);
  }
  return line.ends_with('\\');
}

/// The text without comments and without the backslash at its end. Comments that do not end here
/// go on in the reader.
std::string_view take_text(c_reader& reader, std::string_view text) {
  if (!reader.continued && text.find('/') == std::string_view::npos) {
    reader.in_comment = reader.in_line_comment = false;
    return trimmed(text);
  }
  const bare_text bare = without_comments(text, reader.buffer);
  reader.in_comment = bare.end == text_end::open_comment;
  if (reader.in_comment) {
    reader.comment = static_cast<std::size_t>(text.data() - reader.header.data()) + bare.comment;
  }
  reader.in_line_comment = bare.end == text_end::line_comment && reader.continued;
  const bool leads_on = reader.continued && bare.end == text_end::line && bare.text.ends_with('\\');
  return leads_on ? trimmed(bare.text.substr(0, bare.text.size() - 1)) : bare.text;
}

/// Removes the comment that a line begins in. Returns false if all of the line is comment.
bool leave_comment(c_reader& reader, std::string_view& line) {
  if (reader.in_line_comment) {
    reader.in_line_comment = reader.continued;
    return false;
  }
  if (reader.in_comment) {
    const std::size_t close = line.find("*/");
    if (close == std::string_view::npos) {
      return false;
    }
    reader.in_comment = false;
    line.remove_prefix(close + 2);
  }
  return true;
}

/// Removes white space and whole comments from the start of a text.
void skip_to_text(std::string_view& text) {
  for (;;) {
    while (!text.empty() && is_white(text.front())) {
      text.remove_prefix(1);
    }
    if (text.empty() || text.front() != '/' || !text.starts_with("/*")) {
      return;
    }
    const std::size_t close = text.find("*/", 2);
    if (close == std::string_view::npos) {
      return;
    }
    text.remove_prefix(close + 2);
  }
}

std::string_view leading_word(std::string_view text, std::size_t at_least) {
  std::size_t end = at_least;
  while (end < text.size() && !is_white(text[end]) && text.substr(end, 2) != "/*" &&
         text.substr(end, 2) != "//") {
    ++end;
  }
  return text.substr(0, end);
}

/// The macro that the text behind #define or #undef names.
void read_macro(c_reader& reader, std::string_view text, c_line& result) {
  skip_to_text(text);
  result.name = leading_name(text);
  result.word = leading_word(text, result.name.size());
  text.remove_prefix(result.name.size());
  result.has_parameters = text.starts_with('(');
  result.value = take_text(reader, text);
  reader.is_at_top = false;
}

/// A directive, from behind its "#".
void read_directive(c_reader& reader, std::string_view text, std::size_t place, c_line& result) {
  skip_to_text(text);
  const std::string_view word = leading_name(text);
  text.remove_prefix(word.size());
  if (word == "define" || word == "undef") {
    result.kind = word == "define" ? directive::define : directive::undef;
    read_macro(reader, text, result);
  } else {
    follow_condition(reader, word, take_text(reader, text), place);
  }
}

}  // namespace

c_line read_c_line(c_reader& reader, std::string_view line) {
  c_line result;
  const auto place = static_cast<std::size_t>(line.data() - reader.header.data());
  if (place == 0 && line.starts_with(byte_order_mark)) {
    line.remove_prefix(byte_order_mark.size());
  }
  const bool is_rest = reader.continued && !reader.in_comment && !reader.in_line_comment;
  reader.continued = ends_in_backslash(line);
  if (reader.in_comment) {
    result.comment = reader.comment;
  }
  if (!leave_comment(reader, line)) {
    result.state = visibility::in_comment;
    return result;
  }
  if (is_rest) {
    result.state = visibility::rest;
    take_text(reader, line);
    return result;
  }
  skip_to_text(line);
  apply_conditions(reader, result);
  if (line.starts_with('#')) {
    result.continued = reader.continued;
    read_directive(reader, line.substr(1), place, result);
  } else if (take_text(reader, line).empty()) {
    result.state = visibility::in_comment;
  }
  return result;
}

}  // namespace morvane::cli
