#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>

#include "cli/check/check_command.h"
#include "cli/diff/diff_command.h"
#include "cli/explain/explain_command.h"
#include "cli/extract/extract_command.h"
#include "cli/findings/finding_output.h"
#include "cli/guarded_arguments.h"
#include "cli/lint/lint_command.h"
#include "cli/output/console.h"
#include "cli/output/printable_text.h"
#include "cli/output/program_version.h"
#include "cli/pack/pack_command.h"
#include "cli/report/report_command.h"
#include "cli/show/show_command.h"
#include "format/build_constants.h"

namespace morvane::cli {

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

std::string mistake_in_value(const std::string& value) {
  return value.empty() ? "the name is empty" : "";
}

/// Makes an argument or option take its value as it is. All of them are names, of files or other
/// things, and an empty one would not differ from none.
CLI::Option* as_text(CLI::Option* option) {
  return option->transform(unguarded)->check(mistake_in_value)->type_name("");
}

template <class Value>
CLI::Option* add_text(CLI::App& app, const std::string& name, Value& value,
                      const std::string& description) {
  return as_text(app.add_option(name, value, description));
}

/// Only one of these packages can come from standard input.
void read_once(std::initializer_list<CLI::Option*> packages) {
  const auto is_read = std::make_shared<bool>(false);
  for (CLI::Option* const option : packages) {
    option->check([is_read](const std::string& path) {
      const bool is_again = path == standard_input_path && std::exchange(*is_read, true);
      return is_again ? std::string("standard input can be read only once") : std::string();
    });
  }
}

/// The compiler's output folder.
void add_folder(CLI::App& app, std::string& folder) {
  add_text(app, "FOLDER", folder, "The compiler's output folder")
      ->required()
      ->check([](const std::string& path) {
        return path == standard_input_path ? "standard input holds no folder" : std::string();
      });
}

/// What is wrong with a value of --format; empty when nothing is.
std::string mistake_in_format(const std::string& value) {
  const std::string name = value.substr(0, value.find(':'));
  if (find_format(name) == nullptr) {
    return "there is no format " + name;
  }
  return value.ends_with(':') ? "the name of the file is empty" : "";
}

/// The reports for the values of --format: "sarif:lint.sarif", or "text" for standard output.
std::vector<wanted_report> reports_for(const std::vector<std::string>& values) {
  std::vector<wanted_report> reports;
  bool is_taken = false;
  for (const std::string& value : values) {
    const std::size_t colon = std::min(value.find(':'), value.size() - 1);
    const std::string path = value.substr(colon + 1);
    const bool is_to_output = path.empty() || path == standard_output_path;
    if (is_to_output && is_taken) {
      throw CLI::ValidationError("--format",
                                 "only one format can go to standard output; others "
                                 "need a file, as in sarif:FILE");
    }
    is_taken = is_taken || is_to_output;
    reports.push_back(
        {find_format(value.substr(0, value.find(':'))), is_to_output ? std::string() : path});
  }
  return reports;
}

/// Makes an option take several values, but none of the arguments behind it.
CLI::Option* as_list(CLI::Option* option) {
  return option->allow_extra_args(false);
}

/// Declares what all commands that find something take.
void add_finding_options(CLI::App& app, finding_options& options) {
  app.add_flag("--all", options.all, "Also tell what follows from another finding");
  app.add_flag("--werror", options.warnings_are_errors, "Take warnings for errors");
  as_list(add_text(app, "--ignore", options.ignored,
                   "Leave out the findings with these codes, separated by commas"))
      ->delimiter(',')
      ->check([](const std::string& code) {
        return find_kind(code) == nullptr ? "there is no code " + code : std::string();
      })
      ->option_text("CODE");
  add_text(app, "--baseline", options.baseline, "Accept the findings that this file lists")
      ->type_name("FILE");
  add_text(app, "--write-baseline", options.new_baseline,
           "List the findings of this run in a file, for --baseline")
      ->check([](const std::string& path) {
        return path == standard_output_path ? "the findings themselves go to standard output" : "";
      })
      ->type_name("FILE");
  as_list(as_text(app.add_option_function<std::vector<std::string>>(
              "--format",
              [&options](const std::vector<std::string>& values) {
                options.reports = reports_for(values);
              },
              "How to write: text, json, sarif, gitlab, github; sarif:FILE writes a file; can be "
              "given several times")))
      ->check(mistake_in_format)
      ->option_text("FORMAT");
}

command_runner declare_check(CLI::App& app) {
  const auto options = std::make_shared<check_options>();
  read_once(
      {add_text(app, "PACKAGE", options->packages, "The packages to check; - is standard input")
           ->required()});
  app.add_flag("--notes", options->scope.notes, "Also tell what is harmless but good to know");
  add_finding_options(app, options->findings);
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
  add_folder(app, options->scope.folder);
  app.add_flag("--vproc", options->scope.vproc, "Read vproc records too, as pack --vproc does");
  app.add_flag("--notes", options->scope.notes, "Also tell what is harmless but good to know");
  add_finding_options(app, options->findings);
  return [options](console& streams) { return run_lint(*options, streams); };
}

command_runner declare_pack(CLI::App& app) {
  const auto options = std::make_shared<pack_options>();
  add_folder(app, options->folder);
  add_text(app, "-o,--output", options->package, "The package to write; - is standard output")
      ->required()
      ->type_name("FILE");
  app.add_flag("--vproc", options->vproc, "Write vproc records too");
  add_finding_options(app, options->findings);
  add_text(app, "--depfile", options->depfile, "Write a dependency file for Make and Ninja")
      ->type_name("FILE");
  app.add_flag_callback(
      "--no-sync", [options] { options->sync = false; },
      "Do not wait until the package is on the disk");
  return [options](console& streams) { return run_pack(*options, streams); };
}

command_runner declare_explain(CLI::App& app) {
  const auto options = std::make_shared<explain_options>();
  add_text(app, "CODE", options->codes, "The codes to explain; all are listed when none is given");
  return [options](console& streams) { return run_explain(*options, streams); };
}

command_runner declare_show(CLI::App& app) {
  const auto options = std::make_shared<show_options>();
  add_text(app, "PACKAGE", options->package, "The package to show; - is standard input")
      ->required();
  add_text(app, "DAG_NAME", options->dag_names, "The DVIs to show; all when no name is given");
  auto* const json = app.add_flag("--json", options->json, "Write everything as JSON");
  auto* const csv = app.add_flag("--csv", options->csv, "Write a table of the ports as CSV");
  auto* const digest = app.add_flag("--digest", options->digest, "Add the XXH3-128 of every image");
  csv->excludes(json)->excludes(digest);
  return [options](console& streams) { return run_show(*options, streams); };
}

command_runner declare_diff(CLI::App& app) {
  const auto options = std::make_shared<diff_options>();
  read_once(
      {add_text(app, "OLD", options->old_package,
                "The package, or folder to pack, to compare with; - is standard input")
           ->required(),
       add_text(app, "NEW", options->new_package, "The package or folder to compare")->required()});
  app.add_flag("--json", options->json, "Write the differences as JSON");
  return [options](console& streams) { return run_diff(*options, streams); };
}

command_runner declare_report(CLI::App& app) {
  const auto options = std::make_shared<report_options>();
  auto* const package =
      add_text(app, "PACKAGE", options->package, "The package to show; - is standard input")
          ->required();
  add_text(app, "-o,--output", options->output, "The file to write, standard output by default")
      ->type_name("FILE");
  auto* const against =
      add_text(app, "--against", options->old_package, "Mark what changed since this package")
          ->type_name("OLD");
  read_once({package, against});
  app.add_flag("--dot", options->dot, "Write the network as a Graphviz file")->excludes(against);
  return [options](console& streams) { return run_report(*options, streams); };
}

command_runner declare_extract(CLI::App& app) {
  const auto options = std::make_shared<extract_options>();
  add_text(app, "PACKAGE", options->package, "The package to extract from; - is standard input")
      ->required();
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
    command{"explain", "Tell what a finding means, and what to do", "morvane explain not-decimal",
            declare_explain},
    command{"show", "Show what a package holds", "morvane show --json net.bin", declare_show},
    command{"diff", "Tell how two packages, or a package and a folder, differ",
            "morvane diff old.bin new.bin", declare_diff},
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
  for (CLI::Option* const option : app->get_options()) {
    // Otherwise the help names the other options here, where completions look for a value.
    if (!option->get_excludes().empty()) {
      const std::string value = option->get_type_name();
      option->option_text(value.empty() ? " " : value);
    }
  }
  app->callback([runner, &chosen] { chosen = runner; });
}

/// What is wrong with how often an option or argument is given; empty when nothing is.
std::string mistake_in(const CLI::Option& option) {
  const auto most = static_cast<std::size_t>(option.get_items_expected_max());
  if (option.get_required() && option.count() == 0) {
    return option.get_name() + " is missing";
  }
  if (most != 0 && option.count() > most) {
    return option.get_name() + " is given more than once";
  }
  for (const CLI::Option* const other : option.get_excludes()) {
    if (option.count() != 0 && other->count() != 0) {
      return joined(option.get_name(), " and ", other->get_name(), " exclude each other");
    }
  }
  return {};
}

/// What is wrong with the command line that CLI11 refused. Its own words are not for users, except
/// those that the checks of the values above gave it.
std::string mistake_in(const CLI::App& program, const CLI::App& command, const CLI::Error& error) {
  const std::vector<std::string> left_over = program.remaining(true);
  if (!left_over.empty()) {
    return joined("unknown argument ", in_quotes(unguarded(left_over.front())));
  }
  if (&command == &program) {
    return "a command is missing";
  }
  for (const CLI::Option* const option : command.get_options()) {
    std::string mistake = mistake_in(*option);
    if (!mistake.empty()) {
      return mistake;
    }
  }
  return printable(error.what());
}

int report_mistake(const CLI::App& command, std::string_view mistake) {
  const std::string name = command.get_parent() == nullptr ? "" : " " + command.get_name();
  print_message(joined(mistake, "; try morvane", name, " --help"));
  return status_failed;
}

/// "morvane 1.0.0 (packs version 2.1.6, hash b3b3814)"
std::string version_line() {
  return joined("morvane ", program_version, " (packs version ", version_number(version_word),
                ", hash ", hash_text(revision_hash()), ")");
}

/// The help is not to tell what excludes what: it would stand in the place of the description.
void forget_exclusions(CLI::App& program) {
  for (CLI::App* const command : program.get_subcommands({})) {
    for (CLI::Option* const option : command->get_options()) {
      while (!option->get_excludes().empty()) {
        option->remove_excludes(*option->get_excludes().begin());
      }
    }
  }
}

/// What CLI11 ends parsing with when the user asked for help or the version.
int print_help(CLI::App& program, const CLI::ParseError& end, console& streams) {
  forget_exclusions(program);
  std::ostringstream text;
  program.exit(end, text, text);
  print_result(streams, text.str());
  flush_results(streams);
  return status_fine;
}

}  // namespace

int run_command_line(const std::vector<std::string>& arguments) {
  console streams{.colour = has_colours(), .is_terminal = is_on_terminal()};
  command_runner chosen;
  CLI::App program(
      "Lints the compiler's output, and packs, checks, shows, compares and extracts packages.",
      "morvane");
  program.set_version_flag("--version", version_line());
  program.require_subcommand(1);
  program.get_formatter()->label("SUBCOMMAND", "COMMAND");
  program.get_formatter()->label("Positionals", "Arguments");
  program.footer(
      "Exit status: 0 fine, 1 errors or differences, 2 wrong usage or a file that "
      "cannot be read or written.\nmorvane COMMAND --help tells more.");
  for (const command& row : commands) {
    add_command(program, row, streams, chosen);
  }
  guarded_arguments guarded = guard_arguments(program, arguments);
  if (!guarded.mistake.empty()) {
    return report_mistake(*guarded.command, guarded.mistake);
  }
  std::ranges::reverse(guarded.words);  // as CLI11 wants them
  try {
    program.parse(std::move(guarded.words));
  } catch (const CLI::ParseError& end) {
    return end.get_exit_code() == 0
               ? print_help(program, end, streams)
               : report_mistake(*guarded.command, mistake_in(program, *guarded.command, end));
  }
  const int status = chosen(streams);
  flush_results(streams);
  return status;
}

}  // namespace morvane::cli
