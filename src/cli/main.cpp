#include <exception>
#include <new>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/files/mapped_file.h"
#include "cli/output/console.h"

namespace {

using morvane::cli::print_message;
using morvane::cli::status_failed;

/// Returns the exit status, whatever happens.
int run(const std::vector<std::string>& arguments) {
  try {
    return morvane::cli::run_command_line(arguments);
  } catch (const std::bad_alloc&) {
    print_message("not enough memory");
  } catch (const std::exception& failure) {
    print_message(failure.what());
  }
  return status_failed;
}

}  // namespace

int main(int argc, char** argv) {
  morvane::cli::open_standard_streams();
  morvane::cli::end_at_lost_bytes();
  return run({argv + (argc > 0 ? 1 : 0), argv + argc});
}
