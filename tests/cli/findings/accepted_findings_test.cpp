// What users accept: codes that are ignored, and findings that a baseline lists.
#include <gtest/gtest.h>

#include "cli/findings/finding_output.h"
#include "cli/outcome.h"
#include "harness/packages.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

constexpr const char* net_header =
    "#define net_DAG_NAME \"net\"\n"
    "#define net_image_size 5\n"
    "/* net HMB_input data */\n"
    "#define net_data_W 40\n"
    "#define net_data_qubrix_demangled_name \"conv:0\"\n";

constexpr const char* cut =
    "in/net.h:5:41: warning: the value \"conv:0\" is cut at a separator: "
    "net_data_qubrix_demangled_name becomes \"conv\" [cut-name]\n";

constexpr const char* left_out =
    "in/net_split_.dvi:1:1: error: the name has _split_, but no index before the extension: the "
    "image is left out [bad-index]\n";

constexpr const char* comment =
    "# Findings that morvane accepts with --baseline; # stands for a number.\n";

constexpr const char* cut_entry =
    "cut-name net.h net_data_qubrix_demangled_name: the value \"conv:0\" is cut at a separator: "
    "net_data_qubrix_demangled_name becomes \"conv\"\n";

constexpr const char* left_out_entry =
    "bad-index net_split_.dvi: the name has _split_, but no index before the extension: the image "
    "is left out\n";

class AcceptedFindings : public testing::Test {
 protected:
  void SetUp() override {
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", net_header);
    folder.write("in/net_split_.dvi", "image");
    folder.write("in/net_split_.h", "");
    folder.write("all.txt", std::string(comment) + left_out_entry + cut_entry);
  }

  [[nodiscard]] run_result run(const std::vector<std::string>& words) const {
    return run_morvane(words, folder.path());
  }

  scratch_folder folder;
};

TEST_F(AcceptedFindings, AreWrittenSortedAndWithoutNumbers) {
  folder.write("in/net.h", net_header + std::string(1024, ' ') + "\n");
  const run_result found = run({"lint", "in", "--write-baseline", "new.txt"});
  EXPECT_EQ(found.status, 1);
  EXPECT_EQ(found.diagnostics, "morvane: in: 1 error, 2 warnings\n");
  EXPECT_EQ(folder.read("new.txt"),
            std::string(comment) + left_out_entry + cut_entry +
                "line-too-long net.h: the line has # bytes, and at most # are read: it is "
                "ignored\n");
}

TEST_F(AcceptedFindings, AreNeitherToldNorCounted) {
  expect_outcome(run({"lint", "in"}), 1, std::string(left_out) + cut,
                 "morvane: in: 1 error, 1 warning\n");
  expect_outcome(run({"lint", "in", "--baseline", "all.txt", "--werror"}), 0, "",
                 "morvane: in: 0 errors, 0 warnings, 2 accepted\n");
  expect_outcome(run({"lint", "in", "--ignore", "bad-index,cut-name", "--werror"}), 0, "",
                 "morvane: in: 0 errors, 0 warnings\n");
}

TEST_F(AcceptedFindings, AreKnownAgainBehindOtherLinesAndFromAnotherFolder) {
  folder.write("in/net.h", std::string("/* new */\n/* new */\n") + net_header);
  expect_outcome(run({"lint", "./in", "--baseline", "all.txt"}), 0, "",
                 "morvane: ./in: 0 errors, 0 warnings, 2 accepted\n");
  const std::string path = folder.path("in");
  expect_outcome(run_morvane({"lint", path, "--baseline", folder.path("all.txt")}, "/"), 0, "",
                 "morvane: " + path + ": 0 errors, 0 warnings, 2 accepted\n");
}

TEST_F(AcceptedFindings, DoNotAcceptTheSameOfAnotherName) {
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input 7 */\n"
               "#define net_7_qubrix_demangled_name \"conv:0\"\n");
  expect_outcome(run({"lint", "in", "--baseline", "all.txt"}), 0,
                 "in/net.h:4:38: warning: the value \"conv:0\" is cut at a separator: "
                 "net_7_qubrix_demangled_name becomes \"conv\" [cut-name]\n"
                 "all.txt:3:1: note: no finding is like this entry any more: cut-name net.h "
                 "net_data_qubrix_demangled_name: the value \"conv:0\" is cut at a separator: "
                 "net_data_qubrix_demangled_name becomes \"conv\" [stale-baseline-entry]\n",
                 "morvane: in: 0 errors, 1 warning, 1 accepted\n");
}

TEST_F(AcceptedFindings, AreAsManyAsTheirEntries) {
  const std::string long_line = std::string(1024, ' ') + "\n";
  folder.write("in/net.h", net_header + long_line + long_line);
  folder.write("one.txt", std::string(left_out_entry) + cut_entry +
                              "line-too-long net.h: the line has # bytes, and at most # are read: "
                              "it is ignored\n");
  expect_outcome(run({"lint", "in", "--baseline", "one.txt"}), 0,
                 "in/net.h:7:1: warning: the line has 1024 bytes, and at most 1023 are read: it is "
                 "ignored [line-too-long]\n",
                 "morvane: in: 0 errors, 1 warning, 3 accepted\n");
}

TEST_F(AcceptedFindings, AreReadWithTheLineEndsOfWindowsAndFromStandardInput) {
  const std::string entries = std::string(left_out_entry) + cut_entry;
  std::string windows;
  for (const char character : entries) {
    windows += character == '\n' ? "\r\n" : std::string(1, character);
  }
  folder.write("windows.txt", "\r\n" + windows);
  expect_outcome(run_shell("\"$@\" lint in --quiet --baseline - <windows.txt", folder.path()), 0,
                 "");
}

TEST_F(AcceptedFindings, OfNotesAreStaleOnlyAmongNotes) {
  folder.write("notes.txt", std::string(left_out_entry) + cut_entry + "unused-file x: y\n" +
                                "empty-image .: gone\n");
  expect_outcome(run({"lint", "in", "--baseline", "notes.txt", "--ignore", "empty-image"}), 0, "",
                 "morvane: in: 0 errors, 0 warnings, 2 accepted\n");
  const run_result notes = run(
      {"lint", "in", "--baseline", "notes.txt", "--ignore", "empty-image,default-used", "--notes"});
  EXPECT_NE(notes.output.find("notes.txt:3:1: note: no finding is like this entry any more: "
                              "unused-file x: y [stale-baseline-entry]\n"),
            std::string::npos)
      << notes.output;
}

TEST_F(AcceptedFindings, DoNotHideAFileThatCannotBeRead) {
  std::filesystem::remove(folder.path("in/net.h"));
  folder.make_folder("in/net.h");
  folder.write(
      "unreadable.txt",
      std::string(left_out_entry) +
          "unreadable-file net.h: the file cannot be read: it is a folder, so the DAG gets "
          "no name and no image\n");
  expect_outcome(run({"lint", "in", "--baseline", "unreadable.txt", "--quiet", "--write-baseline",
                      "unreadable.txt"}),
                 2,
                 "in/net.h:1:1: error: the file cannot be read: it is a folder, so the DAG gets no "
                 "name and no image [unreadable-file]\n");
  EXPECT_TRUE(folder.read("unreadable.txt").starts_with("bad-index")) << "it was replaced";
}

TEST_F(AcceptedFindings, CanBeBroughtUpToDateInPlace) {
  folder.write("old.txt", std::string("bad-index gone.dvi: gone\n") + cut_entry);
  EXPECT_EQ(run({"lint", "in", "--baseline", "old.txt", "--write-baseline", "old.txt"}).status, 1);
  EXPECT_EQ(folder.read("old.txt"), std::string(comment) + left_out_entry + cut_entry);
}

TEST_F(AcceptedFindings, AreNotReadFromAFileThatIsMissing) {
  const run_result missing = run({"lint", "in", "--baseline", "none.txt"});
  expect_outcome(missing, 2, "", "morvane: none.txt: No such file or directory\n");
  expect_outcome(run({"check", "net.bin", "--baseline", "in"}), 2, "",
                 "morvane: in: Is a directory\n");
}

TEST_F(AcceptedFindings, AreKnownAgainInAPackageElsewhere) {
  folder.write("a/net.bin", test::header(1) + bytes(sound_dvi(0, "net", 0, 0)) + image());
  EXPECT_EQ(run({"check", "a/net.bin", "--write-baseline", "new.txt", "-q"}).status, 0);
  EXPECT_EQ(folder.read("new.txt"),
            std::string(comment) + "dvi-without-ports net.bin: DVI # (net) has no ports\n");
  std::filesystem::rename(folder.path("a"), folder.path("b"));
  folder.write("sound.bin", sound_package());
  expect_outcome(
      run({"check", "--werror", "sound.bin", "b/net.bin", "--baseline", "new.txt"}), 0,
      "sound.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n"
      "b/net.bin: sound with 1 accepted finding, 1 DVI, 0 ports, without vproc records, 232 "
      "bytes\n");
  expect_outcome(
      run({"check", "sound.bin", "--baseline", "new.txt"}), 0,
      "new.txt:2:1: note: no finding is like this entry any more: dvi-without-ports net.bin: DVI # "
      "(net) has no ports [stale-baseline-entry]\n"
      "sound.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
}

TEST_F(AcceptedFindings, LetAPackageBeMadeAllTheSame) {
  expect_outcome(run({"pack", "in", "-o", "net.bin"}), 1, std::string(left_out) + cut,
                 "morvane: in: 1 error, 1 warning: nothing is packed\n");
  expect_outcome(
      run({"pack", "in", "-o", "net.bin", "--ignore", "bad-index"}), 0,
      std::string(cut) + "net.bin: packed, 1 DVI, 1 port, without vproc records, 1253 bytes\n");
  EXPECT_EQ(run_tool({"-d", "in", "-f", "tool.bin"}, folder.path()).status, 0);
  EXPECT_TRUE(folder.read("net.bin") == folder.read("tool.bin"));
  folder.write("stale.txt",
               std::string(comment) + left_out_entry + cut_entry + "empty-image .: x\n");
  expect_outcome(
      run({"pack", "in", "-o", "net.bin", "--werror", "--baseline", "stale.txt"}), 0,
      "stale.txt:4:1: note: no finding is like this entry any more: empty-image .: x "
      "[stale-baseline-entry]\n"
      "net.bin: packed with 2 accepted findings, 1 DVI, 1 port, without vproc records, 1253 "
      "bytes\n");
}

TEST_F(AcceptedFindings, DoNotMakeAPackRunSucceed) {
  folder.write("in/net.dvi", "ima");
  const std::vector<std::string> words{"pack",    "in",       "-o",
                                       "net.bin", "--ignore", "bad-index,cut-name,image-too-short"};
  const run_result refused = run(words);
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.output, "");
  EXPECT_TRUE(refused.diagnostics.starts_with(
      "morvane: in: the pack run fails, which cannot be accepted: "))
      << refused.diagnostics;
  EXPECT_TRUE(refused.diagnostics.ends_with(": nothing is packed\n")) << refused.diagnostics;
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST_F(AcceptedFindings, DoNotMakeThePackageSound) {
  folder.write("in/net.h", "/* net */\n");
  std::vector<std::string> words{"pack",    "in",       "-o",
                                 "net.bin", "--ignore", "bad-index,no-dag-name,dvi-without-image"};
  expect_outcome(run(words), 1, "net.bin:0x28: error: DVI 0: dag_name is empty [empty-name]\n",
                 "morvane: in: 1 error, 0 warnings: nothing is packed\n");
  EXPECT_FALSE(folder.exists("net.bin"));
  words.back() += ",empty-name";
  EXPECT_EQ(run(words).status, 0);
}

TEST_F(AcceptedFindings, AreAReasonToPackAgain) {
  EXPECT_EQ(run({"pack", "in", "-o", "net.bin", "--baseline", "all.txt", "--depfile", "d"}).status,
            0);
  EXPECT_TRUE(folder.read("d").find(" all.txt") != std::string::npos) << folder.read("d");
}

TEST(BaselineEntry, HasNumbersOnlyInNames) {
  EXPECT_EQ(
      cli::baseline_entry({.kind = cli::kind_of("cut-name"),
                           .file = "a/in/b/net.h",
                           .place = cli::whole_file,
                           .text = "at 0x1F4 (12), -3, 1:12: s2 3d data:0 \"40 \\\" 5 x\" has 7.",
                           .name = "net\n7"},
                          "a/in"),
      "cut-name b/net.h net\\x0a7: at # (#), #, #: s2 3d data:0 \"40 \\\" 5 x\" has #.");
}

/// The text of a finding with two that follow from it, as a file of a report gets it.
std::string group_text(const cli::finding_options& chosen) {
  cli::console streams;
  cli::finding_options options = chosen;
  options.reports = {{cli::find_format("text"), "report"}};
  cli::finding_writer output(streams, options);
  const auto about = [](const cli::finding_kind* kind, const char* text) {
    return cli::finding{.kind = kind, .file = "net.h", .place = cli::whole_file, .text = text};
  };
  cli::finding cause = about(cli::kind_of("cut-name"), "cause");
  cause.rest = {about(cli::kind_of("no-value"), "one"), about(cli::kind_of("conditional"), "two")};
  write_finding(output, cause);
  return output.reports.front().gathered.pending;
}

TEST(FindingsOfOneCause, AreCountedOrToldOnRequest) {
  EXPECT_EQ(group_text({}), "net.h:1:1: warning: cause (and 2 more) [cut-name]\n");
  EXPECT_EQ(group_text({.all = true}),
            "net.h:1:1: warning: cause [cut-name]\n"
            "net.h:1:1: error: one [no-value]\n"
            "net.h:1:1: warning: two [conditional]\n");
}

TEST(FindingsOfOneCause, AreIgnoredAlone) {
  EXPECT_EQ(group_text({.ignored = {"conditional"}}),
            "net.h:1:1: warning: cause (and 1 more) [cut-name]\n");
  EXPECT_EQ(group_text({.ignored = {"conditional", "no-value"}}),
            "net.h:1:1: warning: cause [cut-name]\n");
  EXPECT_EQ(group_text({.ignored = {"cut-name"}}), "");
}

}  // namespace
}  // namespace morvane::test
