// Regenerates the headers: restates what a package holds about a DVI in the macros that the
// compiler's headers use, block by block at the end of the DVI's header.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "format/macros.h"
#include "format/records.h"
#include "inspect/package_reader.h"
#include "inspect/parse_folder.h"

namespace morvane {

/// The header of every DVI: PARSE FOLDER/_dag_name.h. Deletes the files that stand there.
claimed_list<parsed_file> make_header_paths(std::string_view folder,
                                            const claimed_list<dvi_desc>& dvis);

/// Appends the line "#define PREFIX+SUFFIX VALUE" to the lines, with a tab between its words and,
/// when quoted is set, the value between double quotes.
void append_define_line(std::string& lines, std::string_view prefix, std::string_view suffix,
                        std::string_view value, bool quoted);

/// Appends the lines to a header. Returns 0; or -1, with the message "can't open file ...", when it
/// cannot be opened.
int append_lines_to_file(std::string_view lines, const parsed_file& header);

/// The block writers append one block per record to a header. Without records they still open it,
/// and so report each that cannot be opened.
void write_dag_blocks(const claimed_list<parsed_file>& headers, const claimed_list<dvi_desc>& dvis);
void write_port_blocks(const parsed_file& header, const dvi_desc& dvi,
                       const claimed_list<port_desc>& ports, const port_class& ports_class);
void write_variable_blocks(const parsed_file& header, const claimed_list<var_desc>& variables);
void write_smb_blocks(const parsed_file& header, const dvi_desc& dvi,
                      const claimed_list<smb_desc>& smbs);

}  // namespace morvane
