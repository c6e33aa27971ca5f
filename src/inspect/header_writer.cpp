#include "inspect/header_writer.h"

#include <algorithm>
#include <array>

#include "format/file_naming.h"
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
  const auto bytes = std::as_bytes(std::span(&record, 1));
  for (const macro_row& row : macros) {
    if (row.kind == macro_kind::text) {
      append_define_line(lines, prefix, row.suffix, load_text(bytes, row), true);
    } else {
      append_define_line(lines, prefix, row.suffix, std::to_string(load_number(bytes, row)), false);
    }
  }
}

/// Appends the lines of every item to the header, piece by piece: a package may claim any number of
/// items, so the lines of all of them together are never held.
template <class Item, class AppendLines>
void append_blocks(const parsed_file& header, const claimed_list<Item>& items,
                   const AppendLines& append_lines) {
  std::string lines;
  for (std::size_t i = 0; i < items.count; ++i) {
    append_lines(lines, items[i]);
    if (lines.size() >= chunk_size) {
      if (append_lines_to_file(lines, header) != 0) {
        return;
      }
      lines.clear();
    }
  }
  append_lines_to_file(lines, header);
}

std::string joined_name(std::string_view dag_name, std::string_view name) {
  return std::string(dag_name).append("_").append(name);
}

}  // namespace

claimed_list<parsed_file> make_header_paths(std::string_view folder,
                                            const claimed_list<dvi_desc>& dvis) {
  const auto header_of = [&](const dvi_desc& dvi) {
    return file_in_folder(folder, marked_header_name(text_of(dvi.dag_name)));
  };
  claimed_list<parsed_file> headers{.count = dvis.count, .beyond = header_of(dvis.beyond)};
  std::ranges::transform(dvis.present, std::back_inserter(headers.present), header_of);
  std::ranges::for_each(headers.present, remove_parsed_file);
  if (headers.present.size() < headers.count) {
    remove_parsed_file(headers.beyond);
  }
  return headers;
}

void append_define_line(std::string& lines, std::string_view prefix, std::string_view suffix,
                        std::string_view value, bool quoted) {
  const std::string_view quote = quoted ? "\"" : "";
  append_pieces(lines, "#define\t", prefix, suffix, "\t", quote, value, quote, "\n");
}

int append_lines_to_file(std::string_view lines, const parsed_file& header) {
  const file_handle file = append_to_parsed_file(header);
  if (!file.is_open()) {
    return -1;
  }
  write_bytes(file, std::as_bytes(std::span(lines)));
  return 0;
}

void write_dag_blocks(const claimed_list<parsed_file>& headers,
                      const claimed_list<dvi_desc>& dvis) {
  for (std::size_t i = 0; i < dvis.count; ++i) {
    const std::string_view dag_name = text_of(dvis[i].dag_name);
    std::string lines;
    append_define_line(lines, dag_name, dag_name_macro, dag_name, true);
    append_macro_lines(lines, dag_name, dag_lines, dvis[i]);
    append_lines_to_file(lines, headers[i]);
  }
}

void write_port_blocks(const parsed_file& header, const dvi_desc& dvi,
                       const claimed_list<port_desc>& ports, const port_class& ports_class) {
  const std::string_view dag_name = text_of(dvi.dag_name);
  append_blocks(header, ports, [&](std::string& lines, const port_desc& port) {
    const std::string_view port_name = text_of(port.port_name);
    const std::string prefix = joined_name(dag_name, port_name);
    append_pieces(lines, "\n/* ", dag_name, " ", ports_class.keyword, " ", port_name, " */\n");
    append_macro_lines(lines, prefix, port_lines, port);
  });
}

void write_variable_blocks(const parsed_file& header, const claimed_list<var_desc>& variables) {
  append_blocks(header, variables, [](std::string& lines, const var_desc& variable) {
    const std::string_view name = text_of(variable.var);
    append_pieces(lines, "\n/* ", variable_keyword, name, " */\n");
    append_macro_lines(lines, name, variable_lines, variable);
  });
}

void write_smb_blocks(const parsed_file& header, const dvi_desc& dvi,
                      const claimed_list<smb_desc>& smbs) {
  const std::string_view dag_name = text_of(dvi.dag_name);
  append_blocks(header, smbs, [&](std::string& lines, const smb_desc& smb) {
    const std::string_view smb_name = text_of(smb.smb_name);
    append_pieces(lines, "\n/* ", dag_name, " ", smb_keyword, " ", smb_name, " */\n");
    append_macro_lines(lines, joined_name(dag_name, smb_name), smb_lines, smb);
  });
}

}  // namespace morvane
