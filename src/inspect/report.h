// The lines of the report: one function per kind of line.
#pragma once

#include "format/macros.h"
#include "format/records.h"
#include "inspect/package_reader.h"

namespace morvane {

void print_pkg_header(const pkg_header& header);

/// The line of a DVI in the table at the start of the report.
void print_dvi_description(const dvi_desc& dvi);

/// The line above a DVI's ports.
void print_dvi_heading(const dvi_desc& dvi);

/// One line per port; nothing for an empty list.
void print_port_descriptions(const claimed_list<port_desc>& ports, const port_class& ports_class);

/// The line above a DVI's vproc records, and an empty line.
void print_vproc_heading(const dvi_desc& dvi, const vproc_desc& vproc);

/// One line per variable.
void print_variables(const claimed_list<var_desc>& variables);

/// One line per SMB.
void print_smbs(const claimed_list<smb_desc>& smbs);

}  // namespace morvane
