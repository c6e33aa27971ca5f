#include "companion/lint/c_conditions.h"

#include <algorithm>
#include <array>

#include "companion/lint/c_number.h"
#include "companion/lint/c_text.h"

namespace morvane::companion {

namespace {

/// The branch of a condition that holds, does not hold, or depends on the compiler.
visibility branch(bool holds) {
  return holds ? visibility::seen : visibility::left_out;
}

visibility opposite(visibility known) {
  return known == visibility::uncertain ? known : branch(known == visibility::left_out);
}

/// Whether a macro is defined at a place. The compiler itself defines some.
visibility is_defined(c_reader& reader, std::string_view name, std::size_t place) {
  constexpr std::array<std::string_view, 12> of_compilers{
      "__STDC__",   "__STDC_VERSION__", "__GNUC__", "__clang__", "__linux__", "__unix__",
      "__x86_64__", "__aarch64__",      "__LINE__", "__FILE__",  "linux",     "unix"};
  if (std::ranges::find(of_compilers, name) != of_compilers.end()) {
    return visibility::uncertain;
  }
  return branch(reader.macros.defines(name, place));
}

/// NAME of "defined NAME" and "defined(NAME)"; empty for anything else.
std::string_view defined_name(std::string_view text) {
  constexpr std::string_view word = "defined";
  if (leading_name(text) != word) {
    return {};
  }
  text = trimmed(text.substr(word.size()));
  if (text.starts_with('(') && text.ends_with(')')) {
    text = trimmed(text.substr(1, text.size() - 2));
  }
  return leading_name(text) == text ? text : std::string_view();
}

visibility evaluate(c_reader& reader, std::string_view expression, std::size_t place) {
  bool is_negated = false;
  while (expression.starts_with('!')) {
    is_negated = !is_negated;
    expression = trimmed(expression.substr(1));
  }
  visibility result = visibility::uncertain;
  const c_number number = c_number_of(expression);
  const std::string_view name = defined_name(expression);
  if (number.is_known) {
    result = branch(number.magnitude != 0);
  } else if (!name.empty()) {
    result = is_defined(reader, name, place);
  }
  return is_negated ? opposite(result) : result;
}

void open_condition(c_reader& reader, visibility holds, std::size_t place) {
  reader.conditions.push_back({.now = holds, .taken = holds, .place = place});
}

/// The branch of #elif, or of #else, which always holds.
void next_branch(c_condition& condition, visibility holds) {
  switch (condition.taken) {
    case visibility::seen:
      condition.now = visibility::left_out;
      break;
    case visibility::left_out:
      condition.now = condition.taken = holds;
      break;
    default:
      condition.now = visibility::uncertain;
  }
}

}  // namespace

void follow_condition(c_reader& reader, std::string_view directive, std::string_view argument,
                      std::size_t place) {
  if (directive == "if") {
    open_condition(reader, evaluate(reader, argument, place), place);
  } else if (directive == "ifdef") {
    open_condition(reader, is_defined(reader, leading_name(argument), place), place);
  } else if (directive == "ifndef") {
    open_condition(reader, opposite(is_defined(reader, leading_name(argument), place)), place);
  } else if (reader.conditions.empty()) {
    return;
  } else if (directive == "elif") {
    next_branch(reader.conditions.back(), evaluate(reader, argument, place));
  } else if (directive == "else") {
    next_branch(reader.conditions.back(), visibility::seen);
  } else if (directive == "endif") {
    reader.conditions.pop_back();
  }
}

void apply_conditions(const c_reader& reader, c_line& line) {
  for (const visibility worst : {visibility::left_out, visibility::uncertain}) {
    const auto deciding = std::ranges::find(reader.conditions, worst, &c_condition::now);
    if (deciding != reader.conditions.end()) {
      line.seen = worst;
      line.condition = deciding->place;
      return;
    }
  }
}

}  // namespace morvane::companion
