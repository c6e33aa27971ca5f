// What an inspection prints and writes of DVIs without ports.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "end_to_end/package_records.h"

namespace morvane::test {

/// The line of a DVI in the table, and its heading.
std::string table_line(const dvi_fields& dvi);
std::string heading(const dvi_fields& dvi);

/// The first line of the report.
std::string first_line(std::size_t dvi_num);

/// The report on DVIs up to the vproc section.
std::string report_begin(const std::vector<dvi_fields>& dvis);

/// The last lines of the report when all images were written, and when one was not.
std::string report_end(std::string_view parsedir = "./");
std::string failed_report_end(std::string_view parsedir = "./");

/// The lines of a DAG in a regenerated header.
std::string dag_block(const dvi_fields& dvi);

}  // namespace morvane::test
