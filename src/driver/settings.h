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

}  // namespace morvane
