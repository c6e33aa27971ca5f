// Regenerates the headers: writes what a package contains about a DVI with the macros of the
// compiler's headers. Each block is appended to the header of its DVI.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "format/macros.h"
#include "format/records.h"
#include "inspect/package_reader.h"
#include "inspect/parse_folder.h"

namespace morvane {

/// Deletes the header of every DVI, if there is one.
void remove_headers(const parse_folder& folder, const claimed_list<dvi_desc>& dvis);

/// Appends the line "#define PREFIX+SUFFIX VALUE" to the lines, with a tab between its words and,
/// when quoted is set, the value between double quotes.
void append_define_line(std::string& lines, std::string_view prefix, std::string_view suffix,
                        std::string_view value, bool quoted);

/// The block writers append one block per record to the header of its DVI. They open the header
/// even without records, so that each of them reports a header that cannot be opened. The DVIs must
/// live as long as the folder.
void write_dag_blocks(parse_folder& folder, const claimed_list<dvi_desc>& dvis);
void write_port_blocks(parse_folder& folder, const dvi_desc& dvi,
                       const claimed_list<port_desc>& ports, const port_class& ports_class);
void write_variable_blocks(parse_folder& folder, const dvi_desc& dvi,
                           const claimed_list<var_desc>& variables);
void write_smb_blocks(parse_folder& folder, const dvi_desc& dvi,
                      const claimed_list<smb_desc>& smbs);

}  // namespace morvane
