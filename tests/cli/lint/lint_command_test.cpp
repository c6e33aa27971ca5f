// morvane lint, as a user starts it: what it prints besides findings, and its status.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "cli/outcome.h"

namespace morvane::test {
namespace {

constexpr const char* clean_header =
    "#define net_DAG_NAME \"net\"\n"
    "#define net_image_size 5\n"
    "/* net HMB_input data */\n"
    "#define net_data_W 40\n";

/// A folder to lint.
class linted_folder : public morvane_test {
 protected:
  [[nodiscard]] run_result lint(const std::vector<std::string>& options = {}) const {
    std::vector<std::string> arguments = {"lint", "in"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return morvane(arguments);
  }
};

class LintCommand : public linted_folder {
 protected:
  void SetUp() override {
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", clean_header);
  }
};

constexpr const char* hexadecimal =
    "in/net.h:5:20: error: 0x20 is not decimal: net_data_H becomes 0 [not-decimal]\n";

constexpr const char* twice_defined =
    "in/net.h:5:20: warning: net_data_W is 41 here, but 40 on line 4 [defined-twice]\n";

TEST_F(LintCommand, FindsNothingInACleanFolder) {
  expect_outcome(lint(), 0, "", "morvane: in: 0 errors, 0 warnings\n");
  expect_outcome(lint({"--quiet"}), 0, "");
}

TEST_F(LintCommand, FindsNothingInTheSample) {
  for (const std::string option : {"--werror", "--vproc"}) {
    const run_result run = run_morvane(
        {"lint", source_folder() + "/examples/wake_word", option, "--quiet"}, folder.path());
    expect_outcome(run, 0, "");
  }
}

TEST_F(LintCommand, EndsWithStatus1ForAnError) {
  folder.write("in/net.h", std::string(clean_header) + "#define net_data_H 0x20\n");
  expect_outcome(lint(), 1, hexadecimal, "morvane: in: 1 error, 0 warnings\n");
  expect_outcome(lint({"--quiet"}), 1, hexadecimal);
}

TEST_F(LintCommand, TakesWarningsForErrorsOnRequest) {
  folder.write("in/net.h", std::string(clean_header) + "#define net_data_W 41\n");
  expect_outcome(lint(), 0, twice_defined, "morvane: in: 0 errors, 1 warning\n");
  expect_outcome(lint({"--werror"}), 1, twice_defined, "morvane: in: 0 errors, 1 warning\n");
  expect_outcome(lint({"--werror", "--quiet"}), 1, twice_defined);
  expect_outcome(lint({"--quiet"}), 0, "");
}

TEST_F(LintCommand, LeavesOutFindingsOnRequest) {
  folder.write("in/net.h",
               std::string(clean_header) + "#define net_data_H 0x20\n#define net_data_D\n");
  const std::string no_value =
      "in/net.h:6:9: error: net_data_D has no value: it stays 0 [no-value]\n";
  expect_outcome(lint({"--ignore", "not-decimal"}), 1, no_value,
                 "morvane: in: 1 error, 0 warnings\n");
  expect_outcome(lint({"--ignore=not-decimal,no-value", "--werror"}), 0, "",
                 "morvane: in: 0 errors, 0 warnings\n");
}

TEST_F(LintCommand, WritesWhatFollowsFromAFindingOnRequest) {
  folder.write("in/net.h", "#define net_DAG_NAME \"net\"\n#define net_image_size 0x5\n");
  expect_outcome(lint(), 1,
                 "in/net.h:2:24: error: 0x5 is not decimal: net_image_size becomes 0 (and 1 more) "
                 "[not-decimal]\n",
                 "morvane: in: 1 error, 0 warnings\n");
  expect_outcome(
      lint({"--all"}), 1,
      "in/net.h:2:24: error: 0x5 is not decimal: net_image_size becomes 0 [not-decimal]\n"
      "in/net.h:2:24: error: the image has 5 bytes, but the header says 0: it is left out "
      "[image-too-long]\n",
      "morvane: in: 2 errors, 0 warnings\n");
}

class LintManyDags : public linted_folder {
 protected:
  /// A DAG with the index as its name, and with one port, whose lines come last.
  void put_dag(const std::string& index, const std::string& port) const {
    const std::string dag = "dag" + index;
    folder.write("in/net_split_" + index + ".dvi", "image");
    folder.write(
        "in/net_split_" + index + ".h",
        "#define " + dag + "_DAG_NAME \"" + dag + "\"\n#define " + dag + "_image_size 5\n" + port);
  }
};

// Several headers are read at the same time.
TEST_F(LintManyDags, TellsTheFindingsInTheOrderOfThePackage) {
  std::string expected;
  for (int i = 0; i < 200; ++i) {
    const std::string index = std::to_string(i);
    put_dag(index, "/* HMB_input a */\n#define dag" + index + "_a_W 0x1" + index + "\n");
    expected += "in/net_split_" + index + ".h:4:" + std::to_string(17 + index.size()) +
                ": error: 0x1" + index + " is not decimal: dag" + index +
                "_a_W becomes 0 [not-decimal]\n";
  }
  expect_outcome(lint(), 1, expected, "morvane: in: 200 errors, 0 warnings\n");
}

TEST_F(LintManyDags, ComparesAPortWithTheOutputOfADagFarBefore) {
  put_dag("0", "/* HMB_output a */\n#define dag0_a_W 3\n");
  for (int i = 1; i < 150; ++i) {
    put_dag(std::to_string(i), "/* HMB_output b" + std::to_string(i) + " */\n");
  }
  put_dag("150", "/* HMB_input a */\n#define dag150_a_W 4\n");
  expect_outcome(lint(), 0,
                 "in/net_split_150.h:3:14: warning: input a differs from output a on line 3 of "
                 "net_split_0.h: W is 4, not 3 [port-mismatch]\n",
                 "morvane: in: 0 errors, 1 warning\n");
}

TEST_F(LintCommand, DoesNotIgnoreAFileThatCannotBeRead) {
  std::filesystem::remove(folder.path("in/net.h"));
  folder.make_folder("in/net.h");
  expect_outcome(lint({"--ignore", "unreadable-file", "--quiet"}), 2,
                 "in/net.h:1:1: error: the file cannot be read: it is a folder, so the DAG gets no "
                 "name and no image [unreadable-file]\n");
}

TEST_F(LintCommand, CountsNotesWhenTheyAreShown) {
  folder.write("in/net.h", std::string(clean_header) + "#define net_frames 3\n");
  expect_outcome(lint({"--notes", "--ignore=default-used"}), 0,
                 "in/net.h:5:9: note: net_frames belongs to nothing that the header "
                 "introduces, or has an unknown ending: it is not read [unknown-macro]\n",
                 "morvane: in: 0 errors, 0 warnings, 1 note\n");
}

TEST_F(LintCommand, EndsWithTheReasonForAFolderThatCannotBeRead) {
  expect_morvane({"lint", "missing"}, 2, "", "morvane: missing: No such file or directory\n");
  expect_morvane({"lint", "in/net.h"}, 2, "", "morvane: in/net.h: Not a directory\n");
}

TEST_F(LintCommand, WritesFindingsAsJson) {
  folder.write("in/net.h", std::string(clean_header) + "#define net_data_H 0x20\n");
  expect_outcome(lint({"--format", "json"}), 1,
                 "{\"folder\": \"in\", \"findings\": [\n"
                 "  {\"severity\": \"error\", \"code\": \"not-decimal\", \"file\": "
                 "\"in/net.h\", \"line\": 5, \"column\": 20, \"text\": \"0x20 is not decimal: "
                 "net_data_H becomes 0\"}], \"errors\": 1, \"warnings\": 0, \"notes\": 0}\n",
                 "morvane: in: 1 error, 0 warnings\n");
}

TEST_F(LintCommand, WritesFindingsAsSarifWithTheirPlaces) {
  folder.write("in/net.h", std::string(clean_header) + "#define net_data_H 0x20\n");
  const run_result run = lint({"--format=sarif", "--quiet"});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find("{\"uri\": \"in/net.h\"}, \"region\": {\"startLine\": 5, "
                            "\"startColumn\": 20}}"),
            std::string::npos)
      << run.output;
}

TEST_F(LintCommand, LeavesTheFolderAsItIs) {
  struct stat before {};
  struct stat after {};
  const auto files = folder.files();
  ASSERT_EQ(::stat(folder.path("in").c_str(), &before), 0);
  EXPECT_EQ(lint({"--notes", "--vproc"}).status, 0);
  ASSERT_EQ(::stat(folder.path("in").c_str(), &after), 0);
  EXPECT_EQ(folder.files(), files);
  EXPECT_EQ(before.st_mtim.tv_nsec, after.st_mtim.tv_nsec);
  EXPECT_EQ(before.st_ctim.tv_nsec, after.st_ctim.tv_nsec);
}

}  // namespace
}  // namespace morvane::test
