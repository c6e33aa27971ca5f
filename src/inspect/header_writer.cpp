#include "inspect/header_writer.h"

#include <algorithm>
#include <array>

#include "io/message.h"

namespace morvane {

namespace {

/// The macros of a table in the order of their lines in a regenerated block.
template <std::size_t rows>
consteval std::array<macro_row, rows> in_line_order(std::array<macro_row, rows> macros) {
  std::ranges::sort(macros, {}, &macro_row::line);
  return macros;
}

constexpr auto dag_lines = in_line_order(dag_macros);
constexpr auto port_lines = in_line_order(port_macros);
constexpr auto variable_lines = in_line_order(variable_macros);
constexpr auto smb_lines = in_line_order(smb_macros);

template <class Record>
void append_macro_lines(std::string& lines, std::string_view prefix,
                        std::span<const macro_row> macros, const Record& record) {
  const auto bytes = bytes_of(record);
  for (const macro_row& row : macros) {
    if (row.kind == macro_kind::text) {
      append_define_line(lines, prefix, row.suffix, load_text(bytes, row), true);
    } else {
      append_define_line(lines, prefix, row.suffix, std::to_string(load_number(bytes, row)), false);
    }
  }
}

/// Appends the lines of every item to the header of a DAG in pieces. A package may claim any number
/// of items, so their lines must not all be in memory at once.
template <class Item, class AppendLines>
void append_blocks(parse_folder& folder, std::string_view dag_name, const claimed_list<Item>& items,
                   const AppendLines& append_lines) {
  std::string lines;
  for (std::size_t i = 0; i < items.count; ++i) {
    append_lines(lines, items[i]);
    if (lines.size() >= chunk_size) {
      if (append_to_header(folder, dag_name, lines) != 0) {
        return;
      }
      lines.clear();
    }
  }
  append_to_header(folder, dag_name, lines);
}

std::string joined_name(std::string_view dag_name, std::string_view name) {
  return std::string(dag_name).append("_").append(name);
}

}  // namespace

void remove_headers(const parse_folder& folder, const claimed_list<dvi_desc>& dvis) {
  for (const dvi_desc& dvi : dvis.present) {
    remove_header(folder, text_of(dvi.dag_name));
  }
  if (dvis.present.size() < dvis.count) {
    remove_header(folder, text_of(dvis.beyond.dag_name));
  }
}

void append_define_line(std::string& lines, std::string_view prefix, std::string_view suffix,
                        std::string_view value, bool quoted) {
  const std::string_view quote = quoted ? "\"" : "";
  append_pieces(lines, "#define\t", prefix, suffix, "\t", quote, value, quote, "\n");
}

void write_dag_blocks(parse_folder& folder, const claimed_list<dvi_desc>& dvis) {
  for (std::size_t i = 0; i < dvis.count; ++i) {
    const std::string_view dag_name = text_of(dvis[i].dag_name);
    std::string lines;
    append_define_line(lines, dag_name, dag_name_macro, dag_name, true);
    append_macro_lines(lines, dag_name, dag_lines, dvis[i]);
    append_to_header(folder, dag_name, lines);
  }
}

void write_port_blocks(parse_folder& folder, const dvi_desc& dvi,
                       const claimed_list<port_desc>& ports, const port_class& ports_class) {
  const std::string_view dag_name = text_of(dvi.dag_name);
  append_blocks(folder, dag_name, ports, [&](std::string& lines, const port_desc& port) {
    const std::string_view port_name = text_of(port.port_name);
    const std::string prefix = joined_name(dag_name, port_name);
    append_pieces(lines, "\n/* ", dag_name, " ", ports_class.keyword, " ", port_name, " */\n");
    append_macro_lines(lines, prefix, port_lines, port);
  });
}

void write_variable_blocks(parse_folder& folder, const dvi_desc& dvi,
                           const claimed_list<var_desc>& variables) {
  append_blocks(folder, text_of(dvi.dag_name), variables,
                [](std::string& lines, const var_desc& variable) {
                  const std::string_view name = text_of(variable.var);
                  append_pieces(lines, "\n/* ", variable_keyword, name, " */\n");
                  append_macro_lines(lines, name, variable_lines, variable);
                });
}

void write_smb_blocks(parse_folder& folder, const dvi_desc& dvi,
                      const claimed_list<smb_desc>& smbs) {
  const std::string_view dag_name = text_of(dvi.dag_name);
  append_blocks(folder, dag_name, smbs, [&](std::string& lines, const smb_desc& smb) {
    const std::string_view smb_name = text_of(smb.smb_name);
    append_pieces(lines, "\n/* ", dag_name, " ", smb_keyword, " ", smb_name, " */\n");
    append_macro_lines(lines, joined_name(dag_name, smb_name), smb_lines, smb);
  });
}

}  // namespace morvane
