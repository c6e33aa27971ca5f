#include "cli/lint/mistakes.h"

#include <algorithm>

#include "format/macros.h"

namespace morvane::test {

namespace {

using namespace std::literals;

bool holds(std::initializer_list<std::string_view> all, std::string_view one) {
  return std::ranges::find(all, one) != all.end();
}

/// Values that C and the pack run do not, or barely, agree on.
std::string bad_value(random_numbers& random) {
  static const std::vector<std::string> values{"0x40",
                                               "0x0",
                                               "0b11",
                                               "010",
                                               "08",
                                               "12abc",
                                               "40u",
                                               "40UL",
                                               "(40)",
                                               "40 + 1",
                                               "1<<3",
                                               "-1",
                                               "- 5",
                                               "+5",
                                               "300",
                                               "2",
                                               "4294967295",
                                               "4294967296",
                                               "99999999999999999999",
                                               "",
                                               "/* 5 */",
                                               "\"5\"",
                                               "WORD",
                                               "5.0",
                                               "1e3",
                                               "'a'",
                                               "40;",
                                               "40,",
                                               "40 /* rows */",
                                               "40 // rows",
                                               "/* in */ 40",
                                               "\\",
                                               "40 \\",
                                               "\"a b\"",
                                               "\"a:0\"",
                                               "\"\"",
                                               "\"\" /* none */",
                                               "a/b",
                                               "\"a\" \"b\"",
                                               "\"a\\\\b\"",
                                               "L\"x\"",
                                               "\"x\"\r",
                                               "x\r",
                                               "40\r",
                                               "\v7",
                                               "(40",
                                               "\"a//b\"",
                                               "\"a/*b\"",
                                               "\",\"",
                                               "40\0"s,
                                               "\0"
                                               "40"s,
                                               "__HEADER_H__"};
  return values[below(random, values.size())];
}

/// Texts that C and the pack run do not, or barely, agree on.
std::string bad_text(random_numbers& random) {
  static const std::vector<std::string> values{"\"a b\"",    "\"a:0\"", "\"\"",  "\"\" /* none */",
                                               "\"a\\\\b\"", "x\r",     "OTHER", ""};
  return values[below(random, values.size())];
}

/// A line that defines a macro, its macro and the suffix of that.
struct chosen_macro {
  std::size_t line = 0;
  std::string name;
  std::string suffix;
};

chosen_macro choose_macro(const header_lines& header, random_numbers& random) {
  chosen_macro chosen;
  std::vector<std::size_t> lines;
  for (std::size_t i = 0; i < header.lines.size(); ++i) {
    if (header.lines[i].starts_with("#define net") || header.lines[i].starts_with("#define v")) {
      lines.push_back(i);
    }
  }
  if (!lines.empty()) {
    chosen.line = lines[below(random, lines.size())];
    const std::string rest = header.lines[chosen.line].substr(8);
    chosen.name = rest.substr(0, rest.find_first_of(" \t("));
    chosen.suffix = chosen.name.substr(std::min(chosen.name.rfind('_'), chosen.name.size()));
    for (const std::string_view suffix : port_suffixes) {
      if (chosen.name.ends_with(suffix)) {
        chosen.suffix = suffix;
      }
    }
  }
  return chosen;
}

std::string any_macro(const header_lines& header, random_numbers& random) {
  constexpr std::array blocks{"a", "data", "in", "mask"};
  return header.dag + "_" + blocks.at(below(random, 4)) +
         std::string(port_suffixes.at(below(random, port_suffixes.size())));
}

void insert(header_lines& header, std::size_t place, const std::string& line) {
  header.lines.insert(header.lines.begin() + static_cast<std::ptrdiff_t>(place), line);
}

std::string name_of_length(random_numbers& random) {
  constexpr std::array<std::size_t, 5> lengths{127, 128, 511, 512, 600};
  return std::string(lengths.at(below(random, 5)), 'n');
}

std::string in_quotes(std::string_view text) {
  return std::string("\"").append(text).append("\"");
}

/// A line that introduces something, in one of the ways that go wrong.
std::string odd_introduction(const header_lines& header, random_numbers& random) {
  static const std::vector<std::string> endings{
      "HMB_input y:0 */",      "HMB_input a HMB_output a */",
      "$a SMB_input b */",     "HMB_inputs */",
      "HMB_output \"a b\" */", "HMB_input a\r",
      "HMB_input a\x01 */",    "SMB_input w=1 */",
      "HMB_output data */",    "HMB_input data */"};
  const std::string comment = one_in(random, 3) ? "// " : "/* ";
  const std::string name = one_in(random, 12) ? "HMB_input " + name_of_length(random)
                                              : endings[below(random, endings.size())];
  return (one_in(random, 8) ? "#define " : comment) + header.dag + " " + name;
}

void change_line(header_lines& header, const chosen_macro& macro, random_numbers& random) {
  std::string& line = header.lines[macro.line];
  const std::string value = good_value(macro.suffix, random);
  switch (below(random, 12)) {
    case 0:
      line = "/* " + line + " */";
      return;
    case 1:
      line = "// " + line;
      return;
    case 2:
      line = definition(macro.name + "idth", value);
      return;
    case 3:
      line.append(" ").append(definition(any_macro(header, random), "7"));
      return;
    case 4:
      line.append(" /* ").append(any_macro(header, random)).append(" 5 */");
      return;
    case 5:
      line = definition("old_" + macro.name, value);
      return;
    case 6:
      line = "const int " + macro.name + " = " + value + ";";
      return;
    case 7:
      line = definition(macro.name + "(x)", value);
      return;
    case 8: {
      const std::string stem = macro.name.substr(0, macro.name.size() - macro.suffix.size());
      line = definition(stem.substr(0, stem.size() - 1) + macro.suffix, value);
      return;
    }
    case 9:
      line = definition(header.dag + "_unknown", value);
      return;
    default:
      line = definition(
          macro.name, macro.suffix == port_suffixes.back() ? bad_text(random) : bad_value(random));
  }
}

/// A line that introduces a port; behind the last line if there is none.
std::size_t choose_port(const header_lines& header, random_numbers& random) {
  std::vector<std::size_t> ports;
  for (std::size_t i = 0; i < header.lines.size(); ++i) {
    if (header.lines[i].find(" HMB_") != std::string::npos && header.lines[i].ends_with(" */")) {
      ports.push_back(i);
    }
  }
  return ports.empty() ? header.lines.size() : ports[below(random, ports.size())];
}

/// A layer name that is not read as it is meant, in the block of a port.
void add_layer(header_lines& header, random_numbers& random) {
  const std::size_t chosen = choose_port(header, random);
  if (chosen == header.lines.size()) {
    return;
  }
  const std::string line = header.lines[chosen].substr(0, header.lines[chosen].size() - 3);
  std::string macro = header.dag;
  macro.append("_").append(line.substr(line.rfind(' ') + 1)).append(port_suffixes.back());
  insert(header, chosen + 1, definition(macro, bad_text(random)));
}

/// The keyword of a line that introduces a port, with two letters exchanged.
void misspell_keyword(header_lines& header, random_numbers& random) {
  const std::size_t chosen = choose_port(header, random);
  if (chosen < header.lines.size()) {
    std::string& line = header.lines[chosen];
    std::swap(line[line.find(" HMB_") + 2], line[line.find(" HMB_") + 3]);
  }
}

void add_near(header_lines& header, const chosen_macro& macro, random_numbers& random) {
  constexpr std::array conditions{"#if 0", "#if 1", "#ifdef __cplusplus", "#if VALUE > 2"};
  const std::string value = good_value(macro.suffix, random);
  switch (below(random, 8)) {
    case 7:
      return misspell_keyword(header, random);
    case 6:
      return add_layer(header, random);
    case 0:
      return insert(header, macro.line + 1, definition(macro.name, value));
    case 1:
      return insert(header, macro.line + 1, definition(macro.name + "_x", value));
    case 2:
      insert(header, macro.line, "#ifdef NOT_DEFINED");
      return insert(header, macro.line + 2, "#endif");
    case 3:
      insert(header, macro.line, conditions.at(below(random, conditions.size())));
      insert(header, macro.line + 2, "#else");
      insert(header, macro.line + 3, definition(macro.name, value));
      return insert(header, macro.line + 4, "#endif");
    case 4:
      insert(header, macro.line, "/* a comment that");
      return insert(header, macro.line + 2, "ends here */");
    default: {
      const std::string moved = header.lines[macro.line];
      header.lines.erase(header.lines.begin() + static_cast<std::ptrdiff_t>(macro.line));
      return insert(header, below(random, header.lines.size() + 1), moved);
    }
  }
}

void add_anywhere(header_lines& header, const chosen_macro& macro, random_numbers& random) {
  constexpr std::array seldom{">>>>>>> other", "#endif", "#define other_DAG_NAME \"other\""};
  const std::size_t place = below(random, header.lines.size() + 1);
  if (one_in(random, 20)) {
    return insert(header, place, seldom.at(below(random, seldom.size())));
  }
  switch (below(random, 8)) {
    case 0:
      return insert(header, place, "/* a comment */");
    case 1:
      return insert(header, place, definition(macro.name, good_value(macro.suffix, random)));
    case 2:
      return insert(header, place, "#undef " + macro.name);
    case 3:
      return insert(header, place, std::string(1020 + below(random, 8), 'x'));
    case 4:
      return insert(header, place, "// ends in a backslash \\");
    case 5:
      return insert(header, place, definition("other", in_quotes(name_of_length(random))));
    case 6:
      return insert(header, place, definition(macro.name, in_quotes(name_of_length(random))));
    default:
      return insert(header, place, odd_introduction(header, random));
  }
}

}  // namespace

std::vector<std::string_view> suffixes_of_ports() {
  std::vector<std::string_view> suffixes;
  for (const macro_row& row : port_macros) {
    suffixes.push_back(row.suffix);
  }
  return suffixes;
}

void add_line(header_lines& header, std::string line) {
  header.lines.push_back(std::move(line));
}

std::string definition(const std::string& name, const std::string& value) {
  return std::string("#define ").append(name).append(" ").append(value);
}

std::string good_value(std::string_view suffix, random_numbers& random) {
  constexpr std::array layers{"\"a/b\"", "\"net/x/relu\"", "\"a\"", "\"conv.1\"", "\"L-2\""};
  if (suffix == "_qubrix_demangled_name") {
    return layers.at(below(random, layers.size()));
  }
  if (holds({"_is_bitvector", "_drotate", "_hflip", "_vflip", "_dflip", "_pflip"}, suffix)) {
    return std::to_string(below(random, 2));
  }
  if (holds({"_dram_format", "_sign", "_datasize", "_expbits"}, suffix)) {
    return std::to_string(below(random, 256));
  }
  if (suffix == "_expoffset") {
    return std::to_string(static_cast<int>(below(random, 256)) - 128);
  }
  return std::to_string(one_in(random, 4) ? random() >> 32U : below(random, 5000));
}

void make_mistake(header_lines& header, random_numbers& random) {
  const chosen_macro macro = choose_macro(header, random);
  if (macro.name.empty()) {
    return;
  }
  switch (below(random, 5)) {
    case 0:
      return add_near(header, macro, random);
    case 1:
      return add_anywhere(header, macro, random);
    default:
      return change_line(header, macro, random);
  }
}

std::string text_of(const header_lines& header, random_numbers& random) {
  const std::string_view end = one_in(random, 8) ? "\r\n" : "\n";
  std::string text;
  std::string_view before;
  for (const std::string& line : header.lines) {
    text.append(before).append(line);
    before = end;
  }
  return one_in(random, 6) ? text : text.append(end);
}

}  // namespace morvane::test
