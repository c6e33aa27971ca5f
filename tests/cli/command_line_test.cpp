// The command line of morvane: help, mistakes, and streams that take nothing.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"
#include "harness/sanitizer.h"

namespace morvane::test {
namespace {

using CommandLine = morvane_test;

TEST_F(CommandLine, TellsItsVersionAndThatOfItsPackages) {
  expect_outcome(run_morvane({"--version"}, "."), 0,
                 "morvane 1.0.0 (packs version 2.1.6, hash b3b3814)\n");
}

TEST_F(CommandLine, TellsItsOwnVersionToReviewTools) {
  folder.write("net.bin", sound_package());
  const run_result run = run_morvane({"check", "--format", "sarif", "net.bin"}, folder.path());
  EXPECT_NE(run.output.find(R"("name": "morvane", "version": "1.0.0")"), std::string::npos)
      << run.output;
}

TEST_F(CommandLine, DescribesAnOptionThatExcludesAnotherWhereItNamesIt) {
  const run_result help = run_morvane({"check", "--help"}, ".");
  EXPECT_NE(help.output.find("  --require-vproc             A package without vproc records"),
            std::string::npos)
      << help.output;
}

TEST_F(CommandLine, HelpsWithTheProgramAndWithEachCommand) {
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

/// Expects that a command line is refused with this sentence, and with the help of this command.
void expect_mistake(const std::vector<std::string>& arguments, const std::string& command,
                    const std::string& sentence) {
  expect_outcome(run_morvane(arguments, "."), 2, "",
                 "morvane: " + sentence + "; try morvane" + command + " --help\n");
}

TEST_F(CommandLine, RefusesWhatItDoesNotKnow) {
  expect_mistake({"chek", "net.bin"}, "", "unknown command \"chek\"");
  expect_mistake({"[check"}, "", "unknown command \"[check\"");
  expect_mistake({"++"}, "", "unknown command \"++\"");
  expect_mistake({""}, "", "unknown command \"\"");
  expect_mistake({"--every"}, "", "unknown option --every");
  expect_mistake({"-q", "check"}, "", "unknown option -q");
  expect_mistake({"check", "--every", "net.bin"}, " check", "unknown option --every");
  expect_mistake({"check", "-qx", "net.bin"}, " check", "unknown option -qx");
  expect_mistake({"check", "-q5", "net.bin"}, " check", "unknown option -q5");
  for (const char* argument : {"-5", "-!", "- ", "---", "--=x", "--QUIET", "--qui", "--a\x1b"}) {
    const std::string shown = argument == std::string("--a\x1b") ? "--a\\x1b" : argument;
    expect_mistake({"check", argument, "net.bin"}, " check", "unknown option " + shown);
  }
  expect_mistake({"report", "net.bin", "again.bin"}, " report", "unknown argument \"again.bin\"");
  for (const char* argument : {"[again]", "++", "check", "", "@again.bin", "a=b", "%%"}) {
    expect_mistake({"report", "net.bin", argument}, " report",
                   std::string("unknown argument \"") + argument + "\"");
  }
  expect_mistake({"check", "--format", "xml", "net.bin"}, " check",
                 "--format: there is no format xml");
  expect_mistake({"lint", "--ignore", "no-images,no-code", "out"}, " lint",
                 "--ignore: there is no code no-code");
}

TEST_F(CommandLine, RefusesWhenSomethingIsMissing) {
  expect_mistake({}, "", "a command is missing");
  expect_mistake({"check"}, " check", "PACKAGE is missing");
  expect_mistake({"check", "--"}, " check", "PACKAGE is missing");
  expect_mistake({"diff", "old.bin"}, " diff", "NEW is missing");
  expect_mistake({"pack", "-o", "net.bin"}, " pack", "FOLDER is missing");
  expect_mistake({"pack", "out"}, " pack", "--output is missing");
  expect_mistake({"report", "net.bin", "-o"}, " report", "-o: the value is missing");
  expect_mistake({"report", "net.bin", "--against"}, " report", "--against: the value is missing");
  expect_mistake({"lint", "out", "--ignore"}, " lint", "--ignore: the value is missing");
}

TEST_F(CommandLine, RefusesOptionsThatDoNotFit) {
  expect_mistake({"check", "--werror=yes", "net.bin"}, " check", "--werror takes no value");
  expect_mistake({"check", "--werror=", "net.bin"}, " check", "--werror takes no value");
  expect_mistake({"report", "net.bin", "-o", "a", "--output=b"}, " report",
                 "--output is given more than once");
  expect_mistake({"check", "--format", "json", "--format", "sarif:-", "net.bin"}, " check",
                 "--format: only one format can go to standard output; others need a file, as in "
                 "sarif:FILE");
  expect_mistake({"check", "--format", "json:", "net.bin"}, " check",
                 "--format: the name of the file is empty");
  expect_mistake({"lint", "out", "--write-baseline", "-"}, " lint",
                 "--write-baseline: the findings themselves go to standard output");
  expect_mistake({"check", "--require-vproc", "--forbid-vproc", "net.bin"}, " check",
                 "--require-vproc and --forbid-vproc exclude each other");
  expect_mistake({"report", "--dot", "--against", "old.bin", "net.bin"}, " report",
                 "--against and --dot exclude each other");
}

TEST_F(CommandLine, RefusesEmptyNames) {
  expect_mistake({"check", "net.bin", ""}, " check", "PACKAGE: the name is empty");
  expect_mistake({"check", "--format=", "net.bin"}, " check", "--format: the name is empty");
  expect_mistake({"lint", ""}, " lint", "FOLDER: the name is empty");
  expect_mistake({"lint", "--ignore", "", "out"}, " lint", "--ignore: the name is empty");
  expect_mistake({"pack", "", "-o", "net.bin"}, " pack", "FOLDER: the name is empty");
  expect_mistake({"pack", "out", "-o", ""}, " pack", "--output: the name is empty");
  expect_mistake({"pack", "out", "-o", "net.bin", "--depfile", ""}, " pack",
                 "--depfile: the name is empty");
  expect_mistake({"show", ""}, " show", "PACKAGE: the name is empty");
  expect_mistake({"diff", "", "new.bin"}, " diff", "OLD: the name is empty");
  expect_mistake({"diff", "old.bin", ""}, " diff", "NEW: the name is empty");
  expect_mistake({"report", ""}, " report", "PACKAGE: the name is empty");
  expect_mistake({"report", "net.bin", "--output="}, " report", "--output: the name is empty");
  expect_mistake({"report", "net.bin", "--against", ""}, " report", "--against: the name is empty");
  expect_mistake({"extract", ""}, " extract", "PACKAGE: the name is empty");
  expect_mistake({"extract", "net.bin", ""}, " extract", "DAG_NAME: the name is empty");
  expect_mistake({"extract", "net.bin", "-o", ""}, " extract", "--output: the name is empty");
}

/// What check says of the sound package under a name.
std::string sound_line(const std::string& name) {
  return name + ": sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n";
}

TEST_F(CommandLine, TakesFileNamesAsTheyAre) {
  for (const char* name :
       {"check", "[a,b]", "{}", "a b", "[]", "++", "./-", "%%", "@a", "a=b", "\"a\"", "a,b", "'"}) {
    folder.write(name, sound_package());
    expect_morvane({"check", name, name}, 0, sound_line(name) + sound_line(name));
    const run_result page = morvane({"report", name, "--against", name});
    EXPECT_EQ(page.status, 0) << name;
  }
}

TEST_F(CommandLine, TakesWhatFollowsTwoDashesAsItIs) {
  for (const char* name : {"net.bin", "-x", "--help", "--"}) {
    folder.write(name, sound_package());
    expect_morvane({"check", "--", name}, 0, sound_line(name));
    expect_morvane({"check", "net.bin", "--", name}, 0, sound_line("net.bin") + sound_line(name));
  }
  expect_morvane({"--", "check", "-q", "net.bin", "--"}, 0, "");
}

TEST_F(CommandLine, TakesAnyValueOfAnOption) {
  folder.write("net.bin", sound_package());
  for (const char* name : {"a", "--", "-x", "++", "[a]", "{}", "a=b", "@a", "--help"}) {
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"report", "-o", name, "net.bin"},
             {"report", "net.bin", std::string("-qo") + name},
             {"report", "net.bin", "--output", name},
             {"report", "net.bin", std::string("--output=") + name}}) {
      expect_morvane(arguments, 0, "");
      EXPECT_TRUE(std::filesystem::remove(folder.path(name))) << name;
    }
  }
}

TEST_F(CommandLine, EndsWithStatus2WhenStandardOutputTakesNothing) {
  folder.write("net.bin", sound_package());
  for (const char* command : {"check net.bin", "show net.bin", "show --json net.bin", "--help"}) {
    expect_outcome(run_shell(std::string("\"$@\" ") + command + " >/dev/full", folder.path()), 2,
                   "", "morvane: standard output: No space left on device\n");
    expect_outcome(run_shell(std::string("\"$@\" ") + command + " >&-", folder.path()), 2, "",
                   "morvane: standard output: Bad file descriptor\n");
    expect_outcome(run_shell(std::string("( sleep 0.3; \"$@\" ") + command +
                                 "; echo $? >status ) | true; while [ ! -s status ]; do sleep 0.1; "
                                 "done; cat status",
                             folder.path()),
                   0, "2\n", "morvane: standard output: Broken pipe\n");
    std::filesystem::remove(folder.path("status"));
  }
}

TEST_F(CommandLine, EndsWithStatus2WhenThereIsNotEnoughMemory) {
  if (under_sanitizer || !run_prefix().empty()) {
    GTEST_SKIP() << "a sanitizer, an emulator or a checker needs more memory than the limit";
  }
  expect_outcome(run_shell("ulimit -v 100000; head -c 200000000 /dev/zero | "
                           "\"$@\" check /dev/stdin",
                           folder.path()),
                 2, "", "morvane: not enough memory\n");
}

TEST_F(CommandLine, WorksWithoutStandardInputAndStandardError) {
  folder.write("net.bin", sound_package());
  expect_outcome(run_shell("\"$@\" check net.bin <&- 2>&-", folder.path()), 0,
                 "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
  expect_outcome(run_shell("\"$@\" check none 2>&-", folder.path()), 2, "");
}

/// What morvane prints on a terminal, without the carriage returns; nothing where there is none.
std::string on_a_terminal(const std::string& arguments, const std::string& settings,
                          const scratch_folder& folder) {
  return run_shell("SHELL=/bin/bash " + settings + " script -qec \"$* " + arguments +
                       "\" /dev/null | tr -d '\\r'",
                   folder.path())
      .output;
}

TEST_F(CommandLine, ColoursSeveritiesOnATerminalOnly) {
  folder.write("net.bin", "");
  const std::string plain =
      "net.bin:0x0: error: the header is cut: 12 bytes are needed, and 0 are left [header-cut]\n";
  const std::string coloured =
      "net.bin:0x0: \x1B[1;31merror\x1B[0m: the header is cut: 12 bytes are needed, and 0 are left "
      "[header-cut]\n";
  if (run_shell("script -qec true /dev/null", folder.path()).status != 0) {
    GTEST_SKIP() << "no pseudo-terminal can be made";
  }
  const std::string next = "morvane: next: morvane explain header-cut\n";
  const std::string command = "check net.bin";
  EXPECT_EQ(on_a_terminal(command, "TERM=xterm", folder), coloured + next);
  EXPECT_EQ(on_a_terminal(command, "TERM=xterm NO_COLOR=1", folder), plain + next);
  EXPECT_EQ(on_a_terminal(command, "TERM=dumb", folder), plain + next);
  EXPECT_EQ(morvane({"check", "net.bin"}).output, plain);
}

TEST_F(CommandLine, TellsWhatComesNextOnATerminalOnly) {
  folder.write("net.bin", sound_package());
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n#define net_image_size 5\n/* HMB_input data */\n");
  if (run_shell("script -qec true /dev/null", folder.path()).status != 0) {
    GTEST_SKIP() << "no pseudo-terminal can be made";
  }
  const std::string sound = "net.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n";
  EXPECT_EQ(on_a_terminal("check net.bin", "TERM=dumb", folder),
            sound + "morvane: next: morvane report net.bin -o FILE\n");
  EXPECT_EQ(on_a_terminal("check -q net.bin", "TERM=dumb", folder), "");
  EXPECT_EQ(on_a_terminal("check net.bin | cat", "TERM=dumb", folder), sound);
  EXPECT_EQ(on_a_terminal("check --format github net.bin", "TERM=dumb", folder), "");
  EXPECT_EQ(on_a_terminal("lint in", "TERM=dumb", folder),
            "morvane: in: 0 errors, 0 warnings\n"
            "morvane: next: morvane pack in -o FILE\n");
}

}  // namespace
}  // namespace morvane::test
