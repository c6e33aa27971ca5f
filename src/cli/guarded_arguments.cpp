#include "cli/guarded_arguments.h"

#include <span>
#include <string_view>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// A NUL, which no argument holds, before a value: nothing that CLI11 looks for begins with it.
std::string guarded(std::string_view value) {
  return std::string(1, '\0').append(value);
}

/// Arguments on their way.
struct reading {
  CLI::App& program;
  std::span<const std::string> left;  // of the arguments
  bool has_options = true;            // no "--" was met
  guarded_arguments result{.command = &program};
};

const std::string& take_argument(reading& run) {
  const std::string& argument = run.left.front();
  run.left = run.left.subspan(1);
  return argument;
}

/// "--json", "--output=FILE", or "--output" with the next argument; "-q", "-oFILE", "-qoFILE", or
/// "-o" with the next argument.
std::string take_options(reading& run, const std::string& argument) {
  const bool is_long = argument.starts_with("--");
  std::string_view rest = argument;  // behind a character that is dealt with
  bool is_flag = true;
  while (is_flag && rest.size() > 1) {
    const std::string name =
        is_long ? argument.substr(0, argument.find('=')) : joined("-", rest.substr(1, 1));
    const CLI::Option* const option = run.result.command->get_option_no_throw(name);
    if (option == nullptr) {
      return joined("unknown option ", printable(argument));
    }
    run.result.words.push_back(name);
    rest.remove_prefix(is_long ? name.size() : 1);
    const bool has_rest = is_long ? !rest.empty() : rest.size() > 1;
    is_flag = option->get_items_expected_max() == 0;
    if (is_flag && is_long && has_rest) {
      return name + " takes no value";
    }
    if (!is_flag && !has_rest && run.left.empty()) {
      return name + ": the value is missing";
    }
    if (!is_flag) {
      run.result.words.push_back(guarded(has_rest ? rest.substr(1) : take_argument(run)));
    }
  }
  return {};
}

std::string take_command(reading& run, const std::string& name) {
  const auto named = run.program.get_subcommands(
      [&](const CLI::App* command) { return command->get_name() == name; });
  if (named.empty()) {
    return joined("unknown command ", in_quotes(name));
  }
  run.result.command = named.front();
  run.result.words.push_back(name);
  run.has_options = true;  // those of the command
  return {};
}

}  // namespace

guarded_arguments guard_arguments(CLI::App& program, const std::vector<std::string>& arguments) {
  reading run{.program = program, .left = arguments};
  while (!run.left.empty() && run.result.mistake.empty()) {
    const std::string& argument = take_argument(run);
    if (run.has_options && argument == "--") {
      run.has_options = false;
    } else if (run.has_options && argument.starts_with('-') && argument != "-") {
      run.result.mistake = take_options(run, argument);
    } else if (run.result.command == &program) {
      run.result.mistake = take_command(run, argument);
    } else {
      run.result.words.push_back(guarded(argument));
    }
  }
  return run.result;
}

std::string unguarded(const std::string& value) {
  return value.starts_with('\0') ? value.substr(1) : value;
}

}  // namespace morvane::cli
