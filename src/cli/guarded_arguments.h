// The arguments of a command line, as the user means them, for CLI11.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace morvane::cli {

/// CLI11 gives some arguments a meaning of their own: "++" ends a command, "[a]" is a list, an
/// empty value is none, and a flag may have a value. So it gets each option apart from its value,
/// and no value that looks like anything else.
struct guarded_arguments {
  std::vector<std::string> words{};   // options, and guarded values
  const CLI::App* command = nullptr;  // that they ask for; the program when they ask for none
  std::string mistake{};              // in the options, or the command; empty when there is none
};

/// Reads arguments as getopt does: options may follow other arguments, "--" ends them, short ones
/// can be put together, and a value is a part of its option's argument or the next one.
guarded_arguments guard_arguments(CLI::App& program, const std::vector<std::string>& arguments);

/// The value that a guarded one stands for.
std::string unguarded(const std::string& value);

}  // namespace morvane::cli
