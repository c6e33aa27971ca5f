#include "cli/lint/c/c_conditions.h"

#include <algorithm>

#include "cli/lint/c/c_number.h"
#include "cli/lint/c/c_text.h"

namespace morvane::cli {

namespace {

/// The branch of a condition that holds, does not hold, or depends on the compiler.
visibility branch(bool holds) {
  return holds ? visibility::active : visibility::inactive;
}

visibility opposite(visibility known) {
  return known == visibility::unknown ? known : branch(known == visibility::inactive);
}

/// Whether a compiler may define the macro: its names begin with two underscores, or with one and a
/// capital letter.
bool may_be_of_compiler(std::string_view name) {
  const bool is_reserved =
      name.size() > 1 && name[0] == '_' && (name[1] == '_' || (name[1] >= 'A' && name[1] <= 'Z'));
  return (is_reserved && name != "__cplusplus") || name == "linux" || name == "unix";
}

/// Whether a macro is defined where the reader is. Without a name, the next line holds it.
visibility is_defined(c_reader& reader, std::string_view name) {
  if (name.empty()) {
    return visibility::unknown;
  }
  const auto known = reader.asked.find(name);
  const visibility now = known == reader.asked.end() ? visibility::inactive : known->second;
  const bool is_outer = now == visibility::inactive && may_be_of_compiler(name) &&
                        !reader.macros.defines(name, std::string_view::npos);
  return is_outer ? visibility::unknown : now;
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

/// Whether the line that was read last goes on in the next one, other than with a comment.
bool continued(const c_reader& reader) {
  return reader.in_comment || (reader.continued && !reader.in_line_comment);
}

visibility evaluate(c_reader& reader, std::string_view expression) {
  if (continued(reader)) {
    return visibility::unknown;
  }
  bool is_negated = false;
  while (expression.starts_with('!')) {
    is_negated = !is_negated;
    expression = trimmed(expression.substr(1));
  }
  visibility result = visibility::unknown;
  const c_number number = c_number_of(expression);
  const std::string_view name = defined_name(expression);
  if (number.is_known && !number.is_too_large) {
    result = branch(number.magnitude != 0);
  } else if (!name.empty()) {
    result = is_defined(reader, name);
  }
  return is_negated ? opposite(result) : result;
}

/// Combines the last condition with those around it. Of those that leave lines out, and else of
/// the uncertain ones, the outermost decides.
void combine_with_outer(std::vector<c_condition>& conditions) {
  c_condition& last = conditions.back();
  const c_condition* const outer =
      conditions.size() > 1 ? &conditions[conditions.size() - 2] : nullptr;
  const bool outer_decides =
      outer != nullptr &&
      (outer->with_outer == visibility::inactive ||
       (outer->with_outer == visibility::unknown && last.now != visibility::inactive));
  last.with_outer = outer_decides ? outer->with_outer : last.now;
  last.deciding = outer_decides ? outer->deciding : last.place;
}

void open_condition(c_reader& reader, visibility holds, std::size_t place) {
  reader.conditions.push_back({.now = holds, .taken = holds, .place = place});
  combine_with_outer(reader.conditions);
}

/// The branch of #elif, or of #else, which always holds.
void next_branch(c_reader& reader, visibility holds) {
  c_condition& condition = reader.conditions.back();
  switch (condition.taken) {
    case visibility::active:
      condition.now = visibility::inactive;
      break;
    case visibility::inactive:
      condition.now = condition.taken = holds;
      break;
    default:
      condition.now = visibility::unknown;
  }
  combine_with_outer(reader.conditions);
}

/// Adds all names of a line.
void add_names(asked_macros& names, std::string_view line) {
  while (!line.empty()) {
    const std::string_view name = leading_name(line);
    if (!name.empty()) {
      names.try_emplace(name, visibility::inactive);
    }
    line.remove_prefix(std::max<std::size_t>(name.size(), 1));
  }
}

}  // namespace

asked_macros macros_of_conditions(std::string_view header) {
  asked_macros names;
  for (std::size_t at = header.find('#'); at != std::string_view::npos; at = header.find('#', at)) {
    ++at;
    while (at < header.size() && is_white(header[at])) {
      ++at;
    }
    const std::string_view rest = header.substr(at);
    const bool may_be_condition =
        rest.starts_with("if") || rest.starts_with("elif") || rest.starts_with("/*");
    if (may_be_condition) {
      add_names(names, rest.substr(0, rest.find('\n')));
    }
  }
  return names;
}

void note_definition(c_reader& reader, const c_line& line) {
  if (reader.asked.empty() || line.state == visibility::inactive) {
    return;
  }
  const auto asked = reader.asked.find(line.name);
  if (asked == reader.asked.end()) {
    return;
  }
  const visibility after = branch(line.kind == directive::define);
  if (asked->second != after) {
    asked->second = line.state == visibility::unknown ? visibility::unknown : after;
  }
}

void follow_condition(c_reader& reader, std::string_view directive, std::string_view argument,
                      std::size_t place) {
  if (directive == "if") {
    open_condition(reader, evaluate(reader, argument), place);
  } else if (directive == "ifdef") {
    open_condition(reader, is_defined(reader, leading_name(argument)), place);
  } else if (directive == "ifndef") {
    open_condition(reader, opposite(is_defined(reader, leading_name(argument))), place);
  } else if (reader.conditions.empty()) {
    return;
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
    line.state = reader.conditions.back().with_outer;
    line.condition = reader.conditions.back().deciding;
  }
}

}  // namespace morvane::cli
