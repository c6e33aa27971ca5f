#include "driver/usage.h"

#include <string_view>

#include "format/build_constants.h"
#include "io/message.h"

namespace morvane {

namespace {

constexpr std::string_view usage_text =
    "morvane_gen: dump network Dag information to bin file.\n"
    "Usage: morvane_gen -d | --dir [directory path for qubrix output, "
    "like path/to/qubrix/model/olt/output/folder]\n"
    "                   -f | --filename [filename for dump bin file, default filename is "
    "morvane_gen.bin]\n"
    "                   -p | --parsedir [directory path for verbose output, default is current "
    "folder]\n"
    "                   -v | --verbose [read out dump bin file information]\n"
    "                   -c | --vproc [include vproc info in bin file]\n"
    "                   --version [show morvane_gen version]\n"
    "                   -h | --help [morvane_gen usage]\n"
    "\n"
    "example:\n"
    "1. dump qubrix output to bin file\n"
    "\t./morvane_gen -d path/to/qubrix/model/olt/output/folder "
    "-f path/to/output/folder/morvane_gen.bin\n"
    "2. dump qubrix output to bin file and show verbose information\n"
    "\t./morvane_gen -d path/to/qubrix/model/olt/output/folder "
    "-f path/to/output/folder/morvane_gen.bin -p path/to/output/folder -v\n"
    "3. show verbose information from dump bin\n"
    "\t./morvane_gen -f path/to/output/folder/morvane_gen.bin -p path/to/output/folder -v\n"
    "4. using vproc, add -c for previous #1, #2, #3 cases\n"
    "\t./morvane_gen ...... -c\n"
    "\n";

}  // namespace

void print_usage() {
  print_text(usage_text);
}

int print_version() {
  print_line(version_text(version_word, revision_hash()));
  return 0;
}

}  // namespace morvane
