// What a C compiler sees of a header, line by line: macros, comments and conditions.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane::cli {

/// Whether a compiler takes a line up.
enum class visibility {
  active,
  in_comment,  // nothing on it is outside comments
  rest,        // it is the rest of the line before it, which ends in a backslash
  inactive,    // a condition leaves it out
  unknown      // it depends on a condition that is not decided
};

enum class directive { none, define, undef };

/// A line as a compiler sees it. The texts lie in the header, or in the reader until the next line.
struct c_line {
  visibility state = visibility::active;
  directive kind = directive::none;
  std::string_view name{};               // of the macro
  std::string_view word{};               // the name and what follows it: a.0_W of "#define a.0_W 1"
  std::string_view value{};              // what replaces the macro, without comments
  bool has_parameters = false;           // NAME(...)
  bool continued = false;                // in the next line, behind a backslash
  std::size_t condition = 0;             // the place of the condition, in the header
  std::optional<std::size_t> comment{};  // the place of the comment that the line begins in
};

/// A condition that is open. What an example sets at each of its lines:
///
///     #if LARGE   taken: unknown, state: unknown
///     #if 0       taken: inactive, state: inactive; this condition decides
///     #elif 1     taken: active, state: unknown, as "#if LARGE" around it decides
///     #else       taken: active, state: inactive; this condition decides
struct c_condition {
  visibility taken = visibility::active;  // active: a branch was taken; inactive: none yet; unknown
  std::size_t place = 0;                  // of its first line
  visibility state = visibility::active;  // of the lines from here on
  std::size_t deciding = 0;               // the place of the condition that decides the state
};

/// Reads the lines of a header one after the other.
struct c_reader {
  std::string_view header;
  bool is_at_top = true;  // no line so far defines a macro or has a condition
  bool in_comment = false;
  std::size_t comment = 0;       // the place of the last comment that goes on in the next line
  bool in_line_comment = false;  // that a backslash leads on
  bool continued = false;
  std::vector<c_condition> conditions{};
  std::optional<std::size_t> unopened{};  // the place of the first #else or #endif without an #if
  std::string buffer{};
};

/// Takes the next line, all lines in their order.
c_line read_c_line(c_reader& reader, std::string_view line);

}  // namespace morvane::cli
