#include "companion/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <string_view>

#include "companion/check_command.h"
#include "companion/console.h"
#include "companion/diff_command.h"
#include "companion/extract_command.h"
#include "companion/lint/lint_command.h"
#include "companion/pack_command.h"
#include "companion/printable_text.h"
#include "companion/report_command.h"
#include "companion/show_command.h"
#include "format/build_constants.h"

namespace morvane::companion {

namespace {

/// Runs a command with the options that it was given.
using command_runner = std::function<int(console& streams)>;

/// A command of the program.
struct command {
  const char* name;
  const char* description;
  const char* example;
  /// Declares the options and arguments. The runner holds their values.
  command_runner (*declare)(CLI::App& app);
};

// CLI11 takes an argument in brackets, of those that may be given several times, for a list. A NUL
// behind it, which no argument holds, keeps it whole.
std::string guarded(const std::string& argument) {
  const bool is_bracketed = argument.starts_with('[') && argument.ends_with(']');
  return is_bracketed ? argument + '\0' : argument;
}

std::string unguarded(const std::string& argument) {
  return argument.substr(0, argument.find('\0'));
}

/// An argument or option whose value is taken as it is.
template <class Value>
CLI::Option* add_text(CLI::App& app, const std::string& name, Value& value,
                      const std::string& description) {
  return app.add_option(name, value, description)->transform(unguarded)->type_name("");
}

void add_format(CLI::App& app, finding_format& format) {
  app.add_option_function<std::string>(
         "--format", [&format](const std::string& name) { format = *finding_format_named(name); },
         "How to write: text, json, or sarif for review tools")
      ->check([](const std::string& name) {
        return finding_format_named(name) ? "" : "there is no such format";
      })
      ->type_name("FORMAT");
}

command_runner declare_check(CLI::App& app) {
  const auto options = std::make_shared<check_options>();
  add_text(app, "PACKAGE", options->packages, "The packages to check")->required();
  app.add_flag("--notes", options->scope.notes, "Also tell what is harmless but good to know");
  app.add_flag("--werror", options->warnings_are_errors, "Take warnings for errors");
  add_format(app, options->format);
  auto* const required = app.add_flag_callback(
      "--require-vproc", [options] { options->scope.vproc = vproc_demand::required; },
      "A package without vproc records is not sound");
  app.add_flag_callback(
         "--forbid-vproc", [options] { options->scope.vproc = vproc_demand::forbidden; },
         "A package with vproc records is not sound")
      ->excludes(required);
  return [options](console& streams) { return run_check(*options, streams); };
}

command_runner declare_lint(CLI::App& app) {
  const auto options = std::make_shared<lint_options>();
  add_text(app, "FOLDER", options->scope.folder, "The compiler's output folder")->required();
  app.add_flag("--vproc", options->scope.vproc, "Read vproc records too, as pack --vproc does");
  app.add_flag("--notes", options->scope.notes, "Also tell what is harmless but good to know");
  app.add_flag("--werror", options->warnings_are_errors, "Take warnings for errors");
  add_text(app, "--ignore", options->ignored,
           "Leave out the findings with these codes, separated by commas")
      ->delimiter(',')
      ->allow_extra_args(false)
      ->check([](const std::string& code) {
        const bool is_code =
            std::ranges::find(finding_kinds, code, &finding_kind::code) != finding_kinds.end();
        return is_code ? std::string() : "there is no code " + code;
      })
      ->option_text("CODE,...");
  add_format(app, options->format);
  return [options](console& streams) { return run_lint(*options, streams); };
}

command_runner declare_pack(CLI::App& app) {
  const auto options = std::make_shared<pack_options>();
  add_text(app, "FOLDER", options->folder, "The compiler's output folder")->required();
  add_text(app, "-o,--output", options->package, "The package to write")
      ->required()
      ->type_name("FILE");
  app.add_flag("--vproc", options->vproc, "Write vproc records too");
  app.add_flag("--werror", options->warnings_are_errors, "Treat warnings as errors");
  add_text(app, "--depfile", options->depfile, "Write a dependency file for Make and Ninja")
      ->type_name("FILE");
  app.add_flag_callback(
      "--no-sync", [options] { options->sync = false; },
      "Do not wait until the package is on the disk");
  return [options](console& streams) { return run_pack(*options, streams); };
}

command_runner declare_show(CLI::App& app) {
  const auto options = std::make_shared<show_options>();
  add_text(app, "PACKAGE", options->package, "The package to show")->required();
  app.add_flag("--json", options->json, "Write everything as JSON");
  app.add_flag("--digest", options->digest, "Add the XXH3-128 of every image");
  return [options](console& streams) { return run_show(*options, streams); };
}

command_runner declare_diff(CLI::App& app) {
  const auto options = std::make_shared<diff_options>();
  add_text(app, "OLD", options->old_package, "The package to compare with")->required();
  add_text(app, "NEW", options->new_package, "The package to compare")->required();
  app.add_flag("--json", options->json, "Write the differences as JSON");
  return [options](console& streams) { return run_diff(*options, streams); };
}

command_runner declare_report(CLI::App& app) {
  const auto options = std::make_shared<report_options>();
  add_text(app, "PACKAGE", options->package, "The package to show")->required();
  add_text(app, "-o,--output", options->output, "The file to write, standard output by default")
      ->type_name("FILE");
  auto* const against =
      add_text(app, "--against", options->old_package, "Mark what changed since this package")
          ->type_name("OLD");
  app.add_flag("--dot", options->dot, "Write the network as a Graphviz file")->excludes(against);
  return [options](console& streams) { return run_report(*options, streams); };
}

command_runner declare_extract(CLI::App& app) {
  const auto options = std::make_shared<extract_options>();
  add_text(app, "PACKAGE", options->package, "The package to extract from")->required();
  add_text(app, "DAG_NAME", options->dag_names, "The images to extract; all when no name is given");
  add_text(app, "-o,--output", options->folder,
           "The folder for the images, the current one by default; - writes one image to standard "
           "output")
      ->type_name("FOLDER");
  app.add_flag("--force", options->force, "Replace existing files");
  app.add_flag("--list", options->list, "Print the names of the images that can be extracted");
  return [options](console& streams) { return run_extract(*options, streams); };
}

constexpr std::array commands{
    command{"pack", "Pack a compiler output folder, safely", "morvane pack out -o net.bin",
            declare_pack},
    command{"lint", "Tell what is wrong with a compiler output folder", "morvane lint out",
            declare_lint},
    command{"check", "Tell whether packages are sound", "morvane check net.bin", declare_check},
    command{"show", "Show what a package holds", "morvane show --json net.bin", declare_show},
    command{"diff", "Tell how two packages differ", "morvane diff old.bin new.bin", declare_diff},
    command{"report", "Write a web page that shows a package", "morvane report net.bin -o net.html",
            declare_report},
    command{"extract", "Write the images of a package to files",
            "morvane extract net.bin -o images", declare_extract},
};

/// Declares a command. The runner is kept when the command line asks for that command.
void add_command(CLI::App& program, const command& row, console& streams, command_runner& chosen) {
  CLI::App* const app = program.add_subcommand(row.name, row.description);
  app->group("Commands");
  app->footer(std::string("Example:\n  ") + row.example);
  app->add_flag("-q,--quiet", streams.quiet,
                "Print no warnings, summaries, differences or progress");
  const command_runner runner = row.declare(*app);
  app->callback([runner, &chosen] { chosen = runner; });
}

/// What is wrong with the command line. What is unknown is named before what is missing.
std::string usage_mistake(const CLI::App& program, const CLI::ParseError& error) {
  const bool has_command = !program.get_subcommands().empty();
  const std::vector<std::string> unknown = program.remaining(true);
  if (!unknown.empty()) {
    const std::string_view kind = unknown.front().starts_with('-') ? "option"
                                  : has_command                    ? "argument"
                                                                   : "command";
    return joined("unknown ", kind, " ", printable(unguarded(unknown.front())));
  }
  return has_command ? printable(error.what()) : "a command is missing";
}

int report_usage_error(const CLI::App& program, const CLI::ParseError& error) {
  std::string command;
  for (const CLI::App* const chosen : program.get_subcommands()) {
    command = joined(" ", chosen->get_name());
  }
  print_message(joined(usage_mistake(program, error), "; try morvane", command, " --help"));
  return status_failed;
}

/// What CLI11 ends parsing with: the user asked for help or the version, or made a mistake.
int end_parsing(const CLI::App& program, const CLI::ParseError& end, console& streams) {
  if (end.get_exit_code() != 0) {
    return report_usage_error(program, end);
  }
  std::ostringstream text;
  program.exit(end, text, text);
  print_result(streams, text.str());
  flush_results(streams);
  return status_fine;
}

}  // namespace

int run_command_line(const std::vector<std::string>& arguments) {
  console streams{.colour = has_colours()};
  command_runner chosen;
  CLI::App program(
      "Lints the compiler's output, and packs, checks, shows, compares and extracts packages.",
      "morvane");
  program.set_version_flag("--version", "morvane " + version_text(version_word, revision_hash()));
  program.require_subcommand(1);
  program.get_formatter()->label("SUBCOMMAND", "COMMAND");
  program.get_formatter()->label("Positionals", "Arguments");
  program.footer(
      "Exit status: 0 fine, 1 errors or differences, 2 wrong usage or a file that "
      "cannot be read or written.\nmorvane COMMAND --help tells more.");
  for (const command& row : commands) {
    add_command(program, row, streams, chosen);
  }
  std::vector<std::string> reversed;  // as CLI11 wants them
  std::ranges::transform(arguments, std::back_inserter(reversed), guarded);
  std::ranges::reverse(reversed);
  try {
    program.parse(std::move(reversed));
  } catch (const CLI::ParseError& end) {
    return end_parsing(program, end, streams);
  }
  const int status = chosen(streams);
  flush_results(streams);
  return status;
}

}  // namespace morvane::companion
