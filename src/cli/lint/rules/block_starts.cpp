#include "cli/lint/rules/block_starts.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "cli/lint/c/c_text.h"
#include "cli/lint/rules/value_rules.h"
#include "cli/output/printable_text.h"
#include "cli/package/safe_names.h"
#include "format/length_limits.h"
#include "headers/line_scanner.h"

namespace morvane::cli {

namespace {

std::string_view keyword_of(object_kind kind) {
  switch (kind) {
    case object_kind::input:
      return input_ports.keyword;
    case object_kind::output:
      return output_ports.keyword;
    case object_kind::smb:
      return smb_keyword;
    default:
      return variable_keyword;
  }
}

/// What follows a name without white space, up to the next: ":0" of "y:0 */".
std::string_view glued_rest(std::string_view rest) {
  std::size_t end = 0;
  while (end < rest.size() && !is_white(rest[end]) && rest.substr(end, 2) != "*/") {
    ++end;
  }
  return rest.substr(0, end);
}

/// A name with what follows the separator that ends it; the name alone if nothing does.
std::string_view whole_name(std::string_view name, std::string_view before, std::string_view rest) {
  if (before.ends_with('"')) {
    const std::size_t quote = rest.find('"');
    return {name.data(), name.size() + (quote == std::string_view::npos ? 0 : quote)};
  }
  const std::string_view glued = glued_rest(rest);
  std::string_view word;
  split_line(glued, macro_delimiters, std::span(&word, 1));
  return {name.data(), name.size() + (word.empty() ? 0 : glued.size())};
}

void check_name(comparison& header, const parsed_block& block, const std::string& title,
                std::string_view text) {
  const auto begin = static_cast<std::size_t>(block.name.data() - text.data());
  const std::string_view before = text.substr(0, begin);
  const std::string_view rest = text.substr(begin + block.name.size());
  const std::size_t place = header.place_of(block.name);
  if (block.name.ends_with('\r')) {
    report(header, kind_of("carriage-return"), place,
           joined("the line ends in a carriage return, which becomes part of the name: ", title));
  } else if (std::ranges::any_of(block.name, is_control)) {
    report(header, kind_of("control-character"), place,
           joined("the name of ", title, " holds a control character"));
  } else if (const std::string_view whole = whole_name(block.name, before, rest);
             whole != block.name) {
    report(header, kind_of("cut-name"), place,
           joined("the name ", printable(whole), " is cut at a separator: ", title, " is packed"));
  }
}

/// A keyword inside a longer word, or in a macro, as in "#define net_HMB_input_num 2".
void check_keyword(comparison& header, object_kind kind, const parsed_block& block,
                   const c_line& line, std::string_view text, const std::string& title) {
  if (kind == object_kind::variable && line.kind != directive::define) {
    return;
  }
  const std::string_view keyword = keyword_of(kind);
  const std::size_t end = text.find(keyword) + keyword.size();
  const bool is_glued = end < text.size() && is_name_character(text[end]);
  if (is_glued) {
    report(header, kind_of("keyword-in-a-word"), header.place_of(block.name),
           joined(keyword, " in a longer word introduces a block too: ", title, " is packed"));
  }
}

/// Without a name of the DAG no port is counted, which is told with that.
void check_count(comparison& header, object_kind kind, const parsed_block& block,
                 const std::string& title) {
  const bool is_port = kind != object_kind::smb;
  if (block.is_counted || header.reading.of(object_kind::dag).is_stopped ||
      (is_port && header.reading.dag_name.empty())) {
    return;
  }
  const std::size_t place = header.place_of(block.name);
  if (!is_port) {
    report(header, kind_of("miscounted-vproc"), place,
           joined(title, " is packed, but its line has a ", variable_keyword,
                  " too and counts as a variable only"));
  } else if (block.name.data() < header.reading.dag_name.data() ||
             header.lines.line(place) ==
                 header.lines.line(header.place_of(header.reading.dag_name))) {
    report(header, kind_of("miscounted-port"), place,
           joined(title, " is packed, but not counted: it must come after ",
                  line_title(header, header.place_of(header.reading.dag_name)),
                  ", which names the DAG"));
  } else {
    report(
        header, kind_of("miscounted-port"), place,
        joined(
            title,
            " is packed, but not counted: its line also names an input, and counts only as that"));
  }
}

/// What a compiler does not take for a macro, and why.
std::optional<std::pair<const finding_kind*, std::string_view>> hidden_source(
    const c_line& line, std::string_view text) {
  const std::size_t key = text.find(dag_name_macro);
  if (line.state == visibility::rest) {
    return std::pair(kind_of("continued-line"), "the rest of the line before");
  }
  const bool is_in_comment =
      line.kind != directive::define && (text.find("/*") < key || text.find("//") < key);
  if (line.state == visibility::in_comment || is_in_comment) {
    return std::pair(kind_of("in-comment"), "a comment");
  }
  if (line.state == visibility::inactive) {
    return std::pair(kind_of("conditional"), "a line that a condition leaves out");
  }
  if (line.kind != directive::define) {
    return std::pair(kind_of("not-a-define"), "a line without #define");
  }
  return std::nullopt;
}

/// Judges what the name of the DAG is read from.
void check_dag_source(comparison& header, const c_line& line, std::string_view text) {
  const std::string_view name = header.reading.dag_name;
  const std::size_t place = header.place_of(name);
  const std::string end = joined(" is read as the DAG's name: it becomes ", in_quotes(name));
  if (const auto source = hidden_source(line, text)) {
    report(header, source->first, place, joined(source->second, end));
    return;
  }
  const auto name_end = static_cast<std::size_t>(line.name.data() - text.data()) + line.name.size();
  const std::size_t key_end = text.find(dag_name_macro) + dag_name_macro.size();
  if (key_end < name_end) {
    report(header, kind_of("longer-macro"), place, joined(printable(line.name), end));
    return;
  }
  if (key_end > name_end) {
    report(header, kind_of("two-macros-on-a-line"), place,
           joined("what comes after ", printable(line.name), end));
    return;
  }
  if (line.state == visibility::unknown) {
    report_cause(header, {.kind = kind_of("conditional"),
                          .place = line.condition,
                          .text = joined(printable(line.name),
                                         " depends on this condition, but is read in any case")});
  }
  if (line.continued) {
    report(header, kind_of("continued-line"), place,
           joined("the name goes on in the next line, which is not read: it becomes ",
                  in_quotes(name)));
  } else if (const auto fault = compare_text(line.name, name, line.value, header.macros)) {
    header.findings.push_back(
        {.kind = fault->kind, .place = place, .text = fault->text, .level = severity::error});
  }
}

}  // namespace

void check_introduction(comparison& header, object_kind kind, const parsed_block& block,
                        const c_line& line, std::string_view text) {
  const std::string title = block_title(kind, block);
  check_count(header, kind, block, title);
  check_name(header, block, title, text);
  check_keyword(header, kind, block, line, text, title);
}

void check_dag_line(comparison& header, const c_line& line, std::string_view text) {
  const std::size_t first = header.findings.size();
  check_dag_source(header, line, text);
  const std::string_view name = header.reading.dag_name;
  const std::string_view unsafe = unsafe_part(name);
  if (unsafe.empty()) {
    return;
  }
  header_finding found{.kind = kind_of("unsafe-dag-name"),
                       .place = header.place_of(name),
                       .text = joined("the DAG's name ", in_quotes(name), unsafe)};
  if (name.ends_with('\r') && header.findings.size() > first) {
    add_effect(header.findings[first], std::move(found));
  } else {
    header.findings.push_back(std::move(found));
  }
}

void check_stops(comparison& header) {
  for (std::size_t i = 0; i < object_kinds; ++i) {
    const kind_reading& reading = header.reading.kinds.at(i);
    if (!reading.is_stopped) {
      continue;
    }
    const auto kind = static_cast<object_kind>(i);
    const bool is_name = header.place_of(reading.blocks.back().name) == reading.stop;
    const bool is_port = family_of(kind) == macro_family::port;
    const length_limit& limit =
        is_name ? (is_port ? io_name_limit : var_name_limit) : layer_name_limit;
    const std::size_t length =
        is_name ? reading.blocks.back().name.size() : std::size_t{reading.values.back().length};
    report(header, kind_of("name-too-long"), reading.stop,
           joined("the ", is_name ? name_of(kind) : "layer", " name has ", length,
                  " bytes, and at most ", limit.longest, " fit: nothing can be packed"));
  }
}

}  // namespace morvane::cli
