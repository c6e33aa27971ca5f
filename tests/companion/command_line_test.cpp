// The command line of morvane: help, mistakes, and streams that take nothing.
#include <gtest/gtest.h>

#include "companion/outcome.h"
#include "companion/sound_package.h"
#include "harness/sanitizer.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

/// Starts a shell command in which $0 is morvane, behind the prefix command of this build.
run_result run_shell(const std::string& command, const std::string& folder) {
  std::string program;
  for (const std::string& word : run_prefix()) {
    program += word + " ";
  }
  return run_program(
      {"bash", "-c", "morvane() { " + program + "'" + morvane_path() + "' \"$@\"; }\n" + command},
      folder);
}

TEST(CommandLine, TellsItsVersion) {
  expect_outcome(run_morvane({"--version"}, "."), 0, "morvane version 2.1.6 ( HASH b3b3814 )\n");
}

TEST(CommandLine, HelpsWithTheProgramAndWithEachCommand) {
  const run_result program = run_morvane({"--help"}, ".");
  EXPECT_EQ(program.status, 0);
  EXPECT_EQ(program.diagnostics, "");
  for (const char* command : {"check", "show", "diff", "extract"}) {
    EXPECT_NE(program.output.find(std::string("\n  ") + command + " "), std::string::npos);
    const run_result help = run_morvane({command, "--help"}, ".");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find(std::string("Example:\n  morvane ") + command), std::string::npos);
  }
}

TEST(CommandLine, RefusesMistakesWithStatus2) {
  expect_outcome(run_morvane({}, "."), 2, "",
                 "morvane: a command is missing; try morvane --help\n");
  expect_outcome(run_morvane({"chek", "net.bin"}, "."), 2, "",
                 "morvane: unknown command chek; try morvane --help\n");
  expect_outcome(run_morvane({"--all"}, "."), 2, "",
                 "morvane: unknown option --all; try morvane --help\n");
  expect_outcome(run_morvane({"check"}, "."), 2, "",
                 "morvane: PACKAGE is required; try morvane check --help\n");
  expect_outcome(run_morvane({"check", "--all", "net.bin"}, "."), 2, "",
                 "morvane: unknown option --all; try morvane check --help\n");
  expect_outcome(run_morvane({"show", "net.bin", "again.bin"}, "."), 2, "",
                 "morvane: unknown argument again.bin; try morvane show --help\n");
  expect_outcome(run_morvane({"show", "net.bin", "[again]"}, "."), 2, "",
                 "morvane: unknown argument [again]; try morvane show --help\n");
  expect_outcome(run_morvane({"[check"}, "."), 2, "",
                 "morvane: unknown command [check; try morvane --help\n");
  expect_outcome(run_morvane({"check", "--format", "xml", "net.bin"}, "."), 2, "",
                 "morvane: --format: there is no such format; try morvane check --help\n");
  expect_outcome(run_morvane({"check", "--require-vproc", "--forbid-vproc", "net.bin"}, "."), 2, "",
                 "morvane: --require-vproc excludes --forbid-vproc; try morvane check --help\n");
}

TEST(CommandLine, TakesFileNamesAsTheyAre) {
  const scratch_folder folder;
  for (const char* name : {"check", "[a,b]", "{}", "-x", "a b", "[]"}) {
    folder.write(name, sound_package());
    expect_outcome(
        run_morvane({"check", "--", name}, folder.path()), 0,
        std::string(name) + ": sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
  }
}

TEST(CommandLine, EndsWithStatus2WhenStandardOutputTakesNothing) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  for (const char* command : {"check net.bin", "show net.bin", "show --json net.bin", "--help"}) {
    expect_outcome(run_shell(std::string("morvane ") + command + " >/dev/full", folder.path()), 2,
                   "", "morvane: standard output: No space left on device\n");
    expect_outcome(run_shell(std::string("morvane ") + command + " >&-", folder.path()), 2, "",
                   "morvane: standard output: Bad file descriptor\n");
    expect_outcome(run_shell(std::string("( sleep 0.3; morvane ") + command +
                                 "; echo $? >status ) | true; while [ ! -s status ]; do sleep 0.1; "
                                 "done; cat status",
                             folder.path()),
                   0, "2\n", "morvane: standard output: Broken pipe\n");
    std::filesystem::remove(folder.path("status"));
  }
}

TEST(CommandLine, EndsWithStatus2WhenThereIsNotEnoughMemory) {
  if (under_sanitizer || !run_prefix().empty()) {
    GTEST_SKIP() << "a sanitizer, an emulator or a checker needs more memory than the limit";
  }
  const scratch_folder folder;
  expect_outcome(run_shell("ulimit -v 100000; head -c 200000000 /dev/zero | "
                           "morvane check /dev/stdin",
                           folder.path()),
                 2, "", "morvane: not enough memory\n");
}

TEST(CommandLine, WorksWithoutStandardInputAndStandardError) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  expect_outcome(run_shell("morvane check net.bin <&- 2>&-", folder.path()), 0,
                 "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
  expect_outcome(run_shell("morvane check none 2>&-", folder.path()), 2, "");
}

TEST(CommandLine, ColoursSeveritiesOnATerminalOnly) {
  const scratch_folder folder;
  folder.write("net.bin", "");
  const auto on_a_terminal = [&](const std::string& settings) {
    return run_shell("export -f morvane; " + settings +
                         " script -qec 'morvane check net.bin' /dev/null | tr -d '\\r'",
                     folder.path());
  };
  const std::string plain =
      "net.bin:0x0: error: the header is cut: 12 bytes are needed, and 0 are left [header-cut]\n";
  const std::string coloured =
      "net.bin:0x0: \x1B[1;31merror\x1B[0m: the header is cut: 12 bytes are needed, and 0 are left "
      "[header-cut]\n";
  if (run_shell("script -qec true /dev/null", folder.path()).status != 0) {
    GTEST_SKIP() << "no pseudo-terminal can be made";
  }
  EXPECT_EQ(on_a_terminal("SHELL=/bin/bash TERM=xterm").output, coloured);
  EXPECT_EQ(on_a_terminal("SHELL=/bin/bash TERM=xterm NO_COLOR=1").output, plain);
  EXPECT_EQ(on_a_terminal("SHELL=/bin/bash TERM=dumb").output, plain);
  EXPECT_EQ(run_morvane({"check", "net.bin"}, folder.path()).output, plain);
}

}  // namespace
}  // namespace morvane::test
