#include "cli/lint/c/c_conditions.h"

#include <algorithm>
#include <array>
#include <string>

#include "cli/lint/c/c_text.h"

namespace morvane::cli {

namespace {

using namespace std::literals;

/// Whether a condition holds, of those that are decided.
visibility evaluate(const c_reader& reader, std::string_view condition) {
  constexpr std::array holding{"1"sv, "!defined __cplusplus"sv, "!defined(__cplusplus)"sv};
  constexpr std::array failing{"0"sv, "defined __cplusplus"sv, "defined(__cplusplus)"sv};
  if (!reader.continued && std::ranges::find(holding, condition) != holding.end()) {
    return visibility::active;
  }
  if (!reader.continued && std::ranges::find(failing, condition) != failing.end()) {
    return visibility::inactive;
  }
  return visibility::unknown;
}

/// Whether "#ifndef NAME" on the line at a place is an include guard: no line above it defines a
/// macro or has a condition that is not decided, and the next one that is not blank is
/// "#define NAME".
bool is_include_guard(const c_reader& reader, std::string_view name, std::size_t place) {
  if (!reader.is_at_top || reader.continued || name.empty()) {
    return false;
  }
  const std::string_view from_here = reader.header.substr(place);
  std::string_view below = from_here.substr(std::min(from_here.find('\n'), from_here.size()));
  below.remove_prefix(std::min(below.find_first_not_of(" \t\r\n"), below.size()));
  if (!below.starts_with('#')) {
    return false;
  }
  constexpr std::string_view define = "define";
  const std::string_view text = trimmed(below.substr(1, below.find('\n') - 1));
  return leading_name(text) == define && leading_name(trimmed(text.substr(define.size()))) == name;
}

/// Enters a branch of the last condition. Of the conditions that leave lines out, and else of the
/// uncertain ones, the outermost decides.
void enter_branch(c_reader& reader, visibility holds) {
  c_condition& last = reader.conditions.back();
  last.state = holds;
  last.deciding = last.place;
  if (reader.conditions.size() > 1) {
    const c_condition& outer = reader.conditions[reader.conditions.size() - 2];
    if (outer.state == visibility::inactive ||
        (outer.state == visibility::unknown && holds != visibility::inactive)) {
      last.state = outer.state;
      last.deciding = outer.deciding;
    }
  }
}

/// The name in "!defined NAME" and "!defined(NAME)"; empty for any other condition.
std::string_view undefined_name(std::string_view condition) {
  constexpr std::string_view sign = "!defined";
  if (!condition.starts_with(sign)) {
    return {};
  }
  std::string_view name = trimmed(condition.substr(sign.size()));
  if (name.starts_with('(') && name.ends_with(')')) {
    name = trimmed(name.substr(1, name.size() - 2));
  }
  return leading_name(name) == name ? name : std::string_view();
}

void open_condition(c_reader& reader, visibility holds, std::size_t place) {
  reader.is_at_top = reader.is_at_top && holds != visibility::unknown;
  reader.conditions.push_back({.taken = holds, .place = place});
  enter_branch(reader, holds);
}

/// The branch of #elif, or of #else, which always holds.
void next_branch(c_reader& reader, visibility holds) {
  visibility& taken = reader.conditions.back().taken;
  switch (taken) {
    case visibility::active:
      enter_branch(reader, visibility::inactive);
      break;
    case visibility::inactive:
      taken = holds;
      enter_branch(reader, holds);
      break;
    default:
      enter_branch(reader, visibility::unknown);
  }
}

}  // namespace

void follow_condition(c_reader& reader, std::string_view directive, std::string_view argument,
                      std::size_t place) {
  const std::string_view name = leading_name(argument);
  if (directive == "if") {
    const bool is_guard = is_include_guard(reader, undefined_name(argument), place);
    open_condition(reader, is_guard ? visibility::active : evaluate(reader, argument), place);
  } else if (directive == "ifdef") {
    open_condition(reader, evaluate(reader, std::string("defined ").append(name)), place);
  } else if (directive == "ifndef") {
    const bool is_guard = is_include_guard(reader, name, place);
    open_condition(
        reader,
        is_guard ? visibility::active : evaluate(reader, std::string("!defined ").append(name)),
        place);
  } else if (reader.conditions.empty()) {
    const bool is_end = directive == "elif" || directive == "else" || directive == "endif";
    if (is_end && !reader.unopened) {
      reader.unopened = place;
    }
  } else if (directive == "elif") {
    next_branch(reader, evaluate(reader, argument));
  } else if (directive == "else") {
    next_branch(reader, visibility::active);
  } else if (directive == "endif") {
    reader.conditions.pop_back();
  }
}

void apply_conditions(const c_reader& reader, c_line& line) {
  if (!reader.conditions.empty()) {
    line.state = reader.conditions.back().state;
    line.condition = reader.conditions.back().deciding;
  }
}

}  // namespace morvane::cli
