// A page that shows a package: one file of HTML, without a script and without a request.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes the whole page: the sections below, in their order.
void write_page(const page_content& content, page_output& out);

/// Writes name and verdict.
void write_page_head(const page_content& content, page_output& out);

/// Writes numbers, the sentences that matter most, and the way to the sections.
void write_overview(const page_content& content, page_output& out);

/// Writes the findings of the check.
void write_findings(const page_content& content, page_output& out);

/// Writes the differences from the older package.
void write_changes(const page_content& content, page_output& out);

/// Writes the network with a row for each port; of a network of many ports or DVIs, with a row for
/// each DVI.
void write_network(const page_content& content, page_output& out);

/// A box for each DVI, with a row for each port, and wires between the rows.
void write_port_rows(const page_content& content, page_output& out);

/// A thin row for each DVI, and one wire from it to all that it feeds.
void write_dvi_rows(const page_content& content, page_output& out);

/// Writes the images on an axis of addresses.
void write_images(const page_content& content, page_output& out);

/// Writes the ports of each DVI on an axis of byte offsets that all DVIs share.
void write_port_bytes(const page_content& content, page_output& out);

/// Writes a bar of the file's parts, and a table of them.
void write_file(const page_content& content, page_output& out);

/// Writes all DVIs in the order of the package, with their fields and tables, folded when there are
/// many. Gives back the memory of each and shows how far the work has come.
void write_dvis(const page_content& content, page_output& out);

/// The table of a DVI's inputs and outputs, nothing when it has none.
void write_port_table(const page_content& content, const morvane_view_dvi& dvi, record_marks& marks,
                      page_output& out);

}  // namespace morvane::cli
