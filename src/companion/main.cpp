#include <exception>
#include <new>
#include <string>
#include <vector>

#include "companion/bus_errors.h"
#include "companion/command_line.h"
#include "companion/console.h"

namespace {

using morvane::companion::print_message;
using morvane::companion::status_failed;

/// Returns the exit status, whatever happens.
int run(const std::vector<std::string>& arguments) {
  try {
    return morvane::companion::run_command_line(arguments);
  } catch (const std::bad_alloc&) {
    print_message("not enough memory");
  } catch (const std::exception& failure) {
    print_message(failure.what());
  }
  return status_failed;
}

}  // namespace

int main(int argc, char** argv) {
  morvane::companion::settle_standard_streams();
  morvane::companion::end_at_bus_errors();
  return run({argv + (argc > 0 ? 1 : 0), argv + argc});
}
