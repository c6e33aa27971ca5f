// The usage text and the version line of the tool.
#pragma once

#include <string>
#include <string_view>

namespace morvane::test {

inline constexpr std::string_view version_line = "version 2.1.6 ( HASH b3b3814 )\n";

inline const std::string usage_text =
    R"(morvane_gen: dump network Dag information to bin file.
Usage: morvane_gen -d | --dir [directory path for qubrix output, like path/to/qubrix/model/olt/output/folder]
                   -f | --filename [filename for dump bin file, default filename is morvane_gen.bin]
                   -p | --parsedir [directory path for verbose output, default is current folder]
                   -v | --verbose [read out dump bin file information]
                   -c | --vproc [include vproc info in bin file]
                   --version [show morvane_gen version]
                   -h | --help [morvane_gen usage]

example:
1. dump qubrix output to bin file
)"
    "\t./morvane_gen -d path/to/qubrix/model/olt/output/folder -f "
    "path/to/output/folder/morvane_gen.bin\n"
    "2. dump qubrix output to bin file and show verbose information\n"
    "\t./morvane_gen -d path/to/qubrix/model/olt/output/folder -f "
    "path/to/output/folder/morvane_gen.bin -p path/to/output/folder -v\n"
    "3. show verbose information from dump bin\n"
    "\t./morvane_gen -f path/to/output/folder/morvane_gen.bin -p path/to/output/folder -v\n"
    "4. using vproc, add -c for previous #1, #2, #3 cases\n"
    "\t./morvane_gen ...... -c\n"
    "\n";

}  // namespace morvane::test
