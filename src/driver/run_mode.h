// The tool's front door: what a command line asks for.
#pragma once

namespace morvane {

/// Reads the command line and does what needs no input folder: prints the usage or version text, or
/// inspects a package. Returns -1 after a usage error, 1 after version, help or inspection, and 0
/// when a pack run is to follow.
int select_run_mode(int argc, char** argv);

}  // namespace morvane

/// The library's one exported function: runs the tool on a command line. Returns -1 for a usage
/// error or a failed pack run, 1 after version, help or inspection, 0 after a pack run. First opens
/// closed standard streams on the null device; when that fails it does no more. Meant to be
/// called once per process: the settings and getopt_long keep what they have seen.
extern "C" [[gnu::visibility("default")]] int morvane_main(int argc, char** argv);
