#include "driver/options.h"

#include <getopt.h>

#include <array>
#include <string_view>

#include "format/length_limits.h"
#include "io/message.h"

namespace morvane {

settings_record settings;  // NOLINT(cert-err58-cpp): without the defaults the tool cannot run

namespace {

constexpr const char* short_options = "f:d:p:vch";
constexpr int version_option = 256;  // above every character: it has no short form

constexpr std::array<option, 8> long_options{{
    {"filename", required_argument, nullptr, 'f'},
    {"dir", required_argument, nullptr, 'd'},
    {"parsedir", required_argument, nullptr, 'p'},
    {"verbose", no_argument, nullptr, 'v'},
    {"vproc", no_argument, nullptr, 'c'},
    {"version", no_argument, nullptr, version_option},
    {"help", no_argument, nullptr, 'h'},
    {nullptr, 0, nullptr, 0},
}};

/// Takes an option's argument as the value of a setting. Returns 0, or 1 with a message when it is
/// too long.
int take_name(std::string& setting, std::string_view what) {
  const std::string_view name = optarg;
  if (name.size() > longest_setting) {
    print_line("error: ", what, " exceed ", longest_setting);
    return 1;
  }
  setting = name;
  return 0;
}

int take_option(int option) {
  switch (option) {
    case 'f':
      return take_name(settings.filename, "filename");
    case 'd':
      return take_name(settings.dir, "directory name");
    case 'p':
      return take_name(settings.parsedir, "parse folder name");
    case 'v':
      settings.verbose = true;
      return 0;
    case 'c':
      settings.vproc = true;
      return 0;
    case version_option:
      settings.version = true;
      return 0;
    case 'h':
      settings.help = true;
      return 0;
    default:
      print_line("morvane_gen: unknown switch");
      return -1;
  }
}

}  // namespace

int parse_options(int argc, char** argv) {
  int option = 0;
  int status = 0;
  while (status == 0 &&
         (option = getopt_long(argc, argv, short_options, long_options.data(), nullptr)) != -1) {
    status = take_option(option);
  }
  return status;
}

}  // namespace morvane
