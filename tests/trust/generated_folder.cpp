#include "trust/generated_folder.h"

#include <array>
#include <initializer_list>
#include <span>

#include "format/macros.h"

namespace morvane::test {

namespace {

using namespace std::literals;

constexpr unsigned most_dags = 5;
constexpr unsigned most_blocks = 9;

constexpr std::string_view lower_case = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view upper_case = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

bool one_in(choices& source, unsigned limit) {
  return choose(source, limit) == limit - 1;
}

std::string joined(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) {
    text += piece;
  }
  return text;
}

/// A letter for the kind of the name, and more letters.
std::string name_of(choices& source, char kind, std::string_view letters, unsigned longest) {
  std::string name(1, kind);
  const unsigned length = one_in(source, 16) ? longest : choose(source, 8);
  while (name.size() <= length) {
    name += letters[choose(source, static_cast<unsigned>(letters.size()))];
  }
  return name;
}

/// One word, or two words joined by an underscore.
std::string io_name(choices& source, char kind, unsigned longest) {
  const std::string name = name_of(source, kind, lower_case, longest);
  return one_in(source, 4) ? joined({name, "_", name_of(source, kind, lower_case, longest)}) : name;
}

std::string number(choices& source) {
  switch (choose(source, 10)) {
    case 0:
      return std::to_string(choose(source, 2));
    case 1:
      return std::to_string(choose(source, 256));
    case 2:
      return joined({"-", std::to_string(choose(source, 256))});
    case 3:
      return joined({"+", std::to_string(choose(source, 256))});
    case 4:
      return std::to_string(choose(source, 256) << 24 | choose(source, 256));
    case 5:
      return joined({"0x", std::to_string(choose(source, 100))});
    case 6:
      return joined({std::to_string(choose(source, 256)), "abc"});
    case 7:
      return "99999999999999999999";
    case 8:
      return "word";
    default:
      return "";
  }
}

/// Slashes, dots and bytes of other alphabets, but no text that introduces a block or a DAG.
std::string layer_name(choices& source) {
  constexpr std::string_view signs = "abcxyz/._-0123456789\xc3\xa9\xff\x01()[]";
  return name_of(source, 'l', signs, 300);
}

std::string noise(choices& source) {
  constexpr std::string_view signs = "abcz /*\t\",;:=#_09\xfe\0\v"sv;
  const unsigned length = choose(source, 12);
  std::string line;
  while (line.size() < length) {
    line += signs[choose(source, static_cast<unsigned>(signs.size()))];
  }
  return one_in(source, 16) ? joined({line, std::string(1100, 'n')}) : line;
}

struct header_writer {
  choices& source;
  std::string_view line_end;
  std::string text{};
};

void add_line(header_writer& header, std::string_view line) {
  if (one_in(header.source, 24)) {
    header.text.append(noise(header.source)).append(header.line_end);
  }
  header.text.append(line).append(header.line_end);
}

std::string_view blank(header_writer& header) {
  constexpr std::array<std::string_view, 3> blanks{"\t", " ", "   \t"};
  return blanks[choose(header.source, blanks.size())];
}

void add_macro(header_writer& header, const std::string& macro, const std::string& value) {
  const std::string_view before = blank(header);
  const std::string_view after = blank(header);
  const std::string_view comment = one_in(header.source, 8) ? " /* comment */" : "";
  add_line(header, joined({"#define", before, macro, after, value, comment}));
}

/// A block with its macros in any order, some of them left out.
void add_block(header_writer& header, const std::string& introduction, const std::string& prefix,
               std::span<const macro_row> macros) {
  add_line(header, joined({"/* ", introduction, " */"}));
  const unsigned turn = choose(header.source, static_cast<unsigned>(macros.size()));
  for (std::size_t i = 0; i < macros.size(); ++i) {
    const macro_row& macro = macros[(i + turn) % macros.size()];
    if (one_in(header.source, 12)) {
      continue;
    }
    add_macro(header, joined({prefix, macro.suffix}),
              macro.kind == macro_kind::text ? joined({"\"", layer_name(header.source), "\""})
                                             : number(header.source));
  }
}

void add_port(header_writer& header, const std::string& dag, const std::string& keyword) {
  const std::string name = io_name(header.source, 'p', 140);
  add_block(header, joined({dag, " ", keyword, " ", name}), joined({dag, "_", name}), port_macros);
}

void add_any_block(header_writer& header, const std::string& dag) {
  switch (choose(header.source, 4)) {
    case 0:
      return add_port(header, dag, "HMB_input");
    case 1:
      return add_port(header, dag, "HMB_output");
    case 2: {
      const std::string name = name_of(header.source, 'v', lower_case, 126);
      return add_block(header, joined({"$", name}), name, variable_macros);
    }
    default: {
      const std::string name = io_name(header.source, 's', 60);
      return add_block(header, joined({dag, " SMB_input ", name}), joined({dag, "_", name}),
                       smb_macros);
    }
  }
}

std::string header_text(choices& source, const std::string& dag, unsigned image_size) {
  header_writer header{.source = source, .line_end = one_in(source, 4) ? "\r\n" : "\n"};
  for (unsigned lines = choose(source, 3); lines > 0; --lines) {
    add_line(header, noise(source));
  }
  add_macro(header, joined({dag, "_DAG_NAME"}), joined({"\"", dag, "\""}));
  add_macro(header, joined({dag, "_use_ping_pong_vmem"}), number(source));
  add_macro(header, joined({dag, "_image_start"}), number(source));
  if (!one_in(source, 16)) {
    add_macro(header, joined({dag, "_image_size"}), std::to_string(image_size));
  }
  add_macro(header, joined({dag, "_dagbin_start"}), number(source));
  for (unsigned blocks = choose(source, most_blocks + 1); blocks > 0; --blocks) {
    add_any_block(header, dag);
  }
  if (one_in(source, 8)) {  // no line break at the end
    header.text.resize(header.text.size() - header.line_end.size());
  }
  return header.text;
}

}  // namespace

unsigned choose(choices& source, unsigned limit) {
  if (source.next >= source.bytes.size()) {
    return 0;
  }
  return static_cast<unsigned char>(source.bytes[source.next++]) % limit;
}

std::map<std::string, std::string> generate_folder(choices& source) {
  std::map<std::string, std::string> files;
  const std::string mark = one_in(source, 2) ? "_" : "";
  const unsigned dags = 1 + choose(source, most_dags);
  for (unsigned index = 0; index < dags; ++index) {
    const std::string place = joined({"_split_", std::to_string(index)});
    const std::string file = name_of(source, 'F', upper_case, 100) + place;
    const std::string dag = name_of(source, 'N', upper_case, 110) + place;
    const unsigned image_size = choose(source, 256);
    const std::string beyond_image(choose(source, 4), '!');
    files[joined({mark, file, ".h"})] = header_text(source, dag, image_size);
    files[joined({file, ".dvi"})] =
        joined({std::string(image_size, static_cast<char>('a' + index)), beyond_image});
  }
  return files;
}

}  // namespace morvane::test
