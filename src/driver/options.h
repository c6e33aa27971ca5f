// What the command line sets.
#pragma once

#include <string>

namespace morvane {

/// This value of settings::dir means that no input folder is given, even if the user typed it.
inline constexpr const char* no_input_folder = "dirpath";

struct settings_record {
  std::string filename = "morvane_gen.bin";  // the package
  std::string dir = no_input_folder;         // the compiler's output folder
  std::string parsedir = "./";               // where an inspection makes its parse folder
  bool verbose = false;
  bool vproc = false;
  bool version = false;
  bool help = false;
};

/// The settings of the process. Only parse_options changes them.
extern settings_record settings;

/// Sets the settings from the options. Returns 0; 1 for a name of more than 2048 characters, with
/// its message "error: ... exceed 2048"; -1 for anything that getopt_long does not know, with the
/// message "morvane_gen: unknown switch". Options after an error are ignored.
int parse_options(int argc, char** argv);

}  // namespace morvane
