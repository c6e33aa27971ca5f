// Writes input folders as the compiler does.
#pragma once

#include <string>
#include <string_view>

#include "end_to_end/expectations.h"
#include "harness/scratch_folder.h"

namespace morvane::test {

/// Writes a DVI, STEM.dvi, and its header, _STEM.h, into the folder "in".
void put_dag(const scratch_folder& folder, std::string_view stem, std::string_view header,
             std::string_view image = "");

/// The lines that give the name of a DAG and the size of its image. A size of 0 is left out.
std::string dag_lines(std::string_view dag_name, unsigned image_size = 0);

/// Packs one DVI with this header and image. Returns the package after its package header.
std::string packed(std::string_view header, std::string_view image = "",
                   const std::vector<std::string>& arguments = pack);

/// A line of this number of characters, without its line break: the text, and blanks after it.
std::string padded(std::string_view text, std::size_t length);

}  // namespace morvane::test
