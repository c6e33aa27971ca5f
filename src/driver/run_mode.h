// Chooses what to do from the command line.
#pragma once

namespace morvane {

/// Reads the command line. Without an input folder, prints the usage or version text or inspects a
/// package. Returns -1 after a usage error, 1 after version, help or inspection, and 0 if a pack
/// run must follow.
int select_run_mode(int argc, char** argv);

}  // namespace morvane

/// The library's one exported function: runs the tool on a command line. Returns -1 for a usage
/// error or a failed pack run, 1 after version, help or inspection, 0 after a pack run. First opens
/// closed standard streams on the null device; if that fails, it returns -1. Meant to be
/// called once per process, because the settings and getopt_long keep their state.
extern "C" [[gnu::visibility("default")]] int morvane_main(int argc, char** argv);
