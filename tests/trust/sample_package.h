// Makes packages for the tests from records.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "format/records.h"

namespace morvane::test {

/// The bytes of a record.
template <class Record>
std::string bytes(const Record& record) {
  return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// Puts a text into a field; without a NUL if it is as long as the field.
void put_text(std::span<char> field, std::string_view text);

/// The header of a package with this number of DVIs.
std::string header(std::uint32_t dvi_num);

/// A DVI's description.
dvi_desc dvi(std::string_view dag_name, std::uint32_t img_size, std::uint32_t input_num = 0,
             std::uint32_t output_num = 0);

port_desc port(std::string_view port_name, std::string_view layer_name);
var_desc variable(std::string_view name);
smb_desc smb(std::string_view name);

/// The sample of the damage tests, with a vproc section. One of its two DVIs has an input port, an
/// output port, a variable and an SMB. The other has none of these.
std::string sample_package();

}  // namespace morvane::test
