#include "driver/run_mode.h"

#include <string_view>

#include "driver/options.h"
#include "driver/pack_run.h"
#include "format/build_constants.h"
#include "inspect/inspect_package.h"
#include "io/message.h"
#include "io/standard_streams.h"

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

int select_run_mode(int argc, char** argv) {
  if (argc < 2 || parse_options(argc, argv) != 0) {
    print_text(usage_text);
    return -1;
  }
  if (settings.version) {
    print_line(version_text(version_word, revision_hash()));
    return 1;
  }
  if (settings.help) {
    print_text(usage_text);
    return 1;
  }
  if (settings.dir != no_input_folder) {
    return 0;
  }
  if (settings.verbose) {
    inspect_package(settings.filename, settings.parsedir, settings.vproc);
    return 1;
  }
  print_text(usage_text);
  return -1;
}

}  // namespace morvane

int morvane_main(int argc, char** argv) {
  if (!morvane::open_closed_streams()) {
    return -1;
  }
  const int status = morvane::select_run_mode(argc, argv);
  return status == 0 ? morvane::run_pack() : status;
}
