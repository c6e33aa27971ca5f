// The file that tells Make and Ninja what a package is made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvane::cli {

/// The rule "PACKAGE: INPUT ..." with every path escaped as Make and Ninja read it, and a rule
/// "INPUT:" for each input: one that is removed then makes the package again, where Make would
/// otherwise say that nothing makes that file. Neither program can read a path with a line break:
/// then the text is empty.
std::string depfile_text(std::string_view package, const std::vector<std::string>& inputs);

}  // namespace morvane::cli
