#include "driver/run_mode.h"

#include "driver/options.h"
#include "driver/pack_run.h"
#include "driver/usage.h"
#include "inspect/inspect_package.h"
#include "io/standard_streams.h"

namespace morvane {

int select_run_mode(int argc, char** argv) {
  if (argc < 2 || parse_options(argc, argv) != 0) {
    print_usage();
    return -1;
  }
  if (settings.version) {
    print_version();
    return 1;
  }
  if (settings.help) {
    print_usage();
    return 1;
  }
  if (settings.dir != no_input_folder) {
    return 0;
  }
  if (settings.verbose) {
    inspect_package(settings.filename, settings.parsedir, settings.vproc);
    return 1;
  }
  print_usage();
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
