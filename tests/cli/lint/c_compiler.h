// What a C compiler gives the macros of headers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "harness/scratch_folder.h"

namespace morvane::test {

/// A macro and the value that a package has for it.
struct packed_macro {
  std::string header;  // path
  std::string name;
  bool is_text = false;
  std::string value;  // as it is written in decimal, or the text
};

/// What C has for a macro.
enum class c_answer { no_macro, same, other };

/// Includes each header on its own and compares its macros with the values, all in one run of the
/// compiler. The macros must be in the order of their headers.
std::vector<c_answer> ask_compiler(const std::vector<packed_macro>& macros,
                                   const scratch_folder& scratch);

/// Whether there is a compiler named "cc".
bool has_compiler();

}  // namespace morvane::test
