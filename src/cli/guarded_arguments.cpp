#include "cli/guarded_arguments.h"

#include <algorithm>
#include <string_view>

#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// A NUL, which no argument holds, before a value: nothing that CLI11 looks for begins with it.
constexpr char guard = '\0';

std::string guarded(std::string_view value) {
  return joined(std::string_view(&guard, 1), value);
}

bool takes_value(const CLI::Option& option) {
  return option.get_items_expected_max() != 0;
}

/// Arguments on their way.
struct reading {
  CLI::App& program;
  const std::vector<std::string>& arguments;
  std::size_t next = 0;     // of the arguments
  bool has_options = true;  // no "--" was met
  guarded_arguments result{};

  [[nodiscard]] const CLI::App& app() const {
    return result.command == nullptr ? program : *result.command;
  }
};

void take_next_value(reading& run, const std::string& name) {
  if (run.next == run.arguments.size()) {
    run.result.mistake = joined(name, ": the value is missing");
    return;
  }
  run.result.words.push_back(guarded(run.arguments[run.next++]));
}

/// "--json", "--output=FILE", or "--output" with the next argument.
void take_long_option(reading& run, const std::string& argument) {
  const std::size_t name_end = argument.find('=');
  const std::string name = argument.substr(0, name_end);
  const CLI::Option* const option = run.app().get_option_no_throw(name);
  if (option == nullptr) {
    run.result.mistake = joined("unknown option ", printable(argument));
    return;
  }
  run.result.words.push_back(name);
  if (name_end == std::string::npos) {
    return takes_value(*option) ? take_next_value(run, name) : void();
  }
  if (!takes_value(*option)) {
    run.result.mistake = joined(name, " takes no value");
    return;
  }
  run.result.words.push_back(guarded(std::string_view(argument).substr(name_end + 1)));
}

/// "-q", "-oFILE", "-qoFILE", or "-o" with the next argument.
void take_short_options(reading& run, const std::string& argument) {
  for (std::size_t i = 1; i < argument.size(); ++i) {
    const std::string name{'-', argument[i]};
    const CLI::Option* const option = run.app().get_option_no_throw(name);
    if (option == nullptr) {
      run.result.mistake = joined("unknown option ", printable(argument));
      return;
    }
    run.result.words.push_back(name);
    if (takes_value(*option)) {
      const std::string_view rest = std::string_view(argument).substr(i + 1);
      return rest.empty() ? take_next_value(run, name) : run.result.words.push_back(guarded(rest));
    }
  }
}

void take_command(reading& run, const std::string& name) {
  const auto named = run.program.get_subcommands(
      [&](const CLI::App* command) { return command->get_name() == name; });
  if (named.empty()) {
    run.result.mistake = joined("unknown command ", in_quotes(name));
    return;
  }
  run.result.command = named.front();
  run.result.words.push_back(name);
  run.has_options = true;  // those of the command
}

void take_argument(reading& run) {
  const std::string& argument = run.arguments[run.next++];
  if (run.has_options && argument == "--") {
    run.has_options = false;
  } else if (run.has_options && argument.starts_with("--")) {
    take_long_option(run, argument);
  } else if (run.has_options && argument.starts_with('-') && argument != "-") {
    take_short_options(run, argument);
  } else if (run.result.command == nullptr) {
    take_command(run, argument);
  } else {
    run.result.words.push_back(guarded(argument));
  }
}

}  // namespace

guarded_arguments guard_arguments(CLI::App& program, const std::vector<std::string>& arguments) {
  reading run{.program = program, .arguments = arguments};
  while (run.next < arguments.size() && run.result.mistake.empty()) {
    take_argument(run);
  }
  return run.result;
}

std::string unguarded(const std::string& value) {
  return value.starts_with(guard) ? value.substr(1) : value;
}

}  // namespace morvane::cli
