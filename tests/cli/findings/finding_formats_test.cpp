// Several reports of one run, and the formats that other tests do not show.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

constexpr const char* cut_line =
    "in/net.h:4:41: warning: the value \"conv:0\" is cut at a separator: "
    "net_data_qubrix_demangled_name becomes \"conv\" [cut-name]\n";

constexpr const char* json_text =
    "{\"folder\": \"in\", \"findings\": [\n"
    "  {\"severity\": \"warning\", \"code\": \"cut-name\", \"file\": \"in/net.h\", \"line\": 4, "
    "\"column\": 41, \"text\": \"the value \\\"conv:0\\\" is cut at a separator: "
    "net_data_qubrix_demangled_name becomes \\\"conv\\\"\"}], \"errors\": 0, \"warnings\": 1, "
    "\"notes\": 0}\n";

class FindingFormats : public testing::Test {
 protected:
  void SetUp() override {
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h",
                 "#define net_DAG_NAME \"net\"\n"
                 "#define net_image_size 5\n"
                 "/* net HMB_input data */\n"
                 "#define net_data_qubrix_demangled_name \"conv:0\"\n");
    folder.write("sound.bin", sound_package());
  }

  [[nodiscard]] run_result run(const std::vector<std::string>& words) const {
    return run_morvane(words, folder.path());
  }

  scratch_folder folder;
};

TEST_F(FindingFormats, AreWrittenByOneRunToSeveralFiles) {
  expect_outcome(run({"lint", "in", "--format", "text", "--format", "json:a.json",
                      "--format=json:b", "--format", "text:lint.txt"}),
                 0, cut_line, "morvane: in: 0 errors, 1 warning\n");
  EXPECT_EQ(folder.read("a.json"), json_text);
  EXPECT_EQ(folder.read("b"), json_text);
  EXPECT_EQ(folder.read("lint.txt"), cut_line);
}

TEST_F(FindingFormats, LeaveStandardOutputEmptyWhenAllAreFiles) {
  expect_outcome(run({"check", "sound.bin", "--format", "text:check.txt"}), 0, "");
  EXPECT_EQ(folder.read("check.txt"),
            "sound.bin: sound, 2 DVIs, 4 ports, without vproc records, 4772 bytes\n");
  expect_outcome(run({"lint", "in", "-q", "--format", "json:-"}), 0, json_text);
}

TEST_F(FindingFormats, ShowAFolderAsGitlabDoes) {
  const run_result found = run({"lint", "./in", "-q", "--format", "gitlab"});
  expect_outcome(found, 0,
                 "[\n"
                 "  {\"description\": \"the value \\\"conv:0\\\" is cut at a separator: "
                 "net_data_qubrix_demangled_name becomes \\\"conv\\\"\", \"check_name\": "
                 "\"cut-name\", \"fingerprint\": \"491187191d75bf5349b52e45d45effda\", "
                 "\"severity\": \"minor\", "
                 "\"location\": {\"path\": \"in/net.h\", \"lines\": {\"begin\": 4}}}]\n");
}

TEST_F(FindingFormats, ShowPackagesAsGitlabDoes) {
  folder.write("net.bin", header(1) + bytes(sound_dvi(0, "", 0, 0)) + image());
  const std::string empty =
      "  {\"description\": \"0x28: DVI 0: dag_name is empty\", \"check_name\": \"empty-name\", "
      "\"fingerprint\": \"41eb9f5fba7eb9cda8d707daf409534c\", \"severity\": \"major\", "
      "\"location\": {\"path\": \"net.bin\", "
      "\"lines\": {\"begin\": 1}}}";
  expect_outcome(
      run({"check", "net.bin", "none.bin", "--format", "gitlab", "--ignore", "dvi-without-ports"}),
      2,
      "[\n" + empty +
          ",\n"
          "  {\"description\": \"No such file or directory\", \"check_name\": \"unreadable-file\", "
          "\"fingerprint\": \"dc379ed77ac06215f1ff17bf1dbad5a9\", \"severity\": \"major\", "
          "\"location\": {\"path\": "
          "\"none.bin\", \"lines\": {\"begin\": 1}}}]\n",
      "morvane: none.bin: No such file or directory\n");
  expect_outcome(run({"check", "sound.bin", "--format", "gitlab"}), 0, "[]\n");
}

/// The fingerprints of the findings about two lines that are too long, behind a line.
std::vector<std::string> fingerprints(const scratch_folder& folder, const std::string& line) {
  const std::string long_line = std::string(1024, ' ') + "\n";
  folder.write("in/net.h", line + "#define net_DAG_NAME \"net\"\n#define net_image_size 5\n" +
                               long_line + long_line);
  const std::string report =
      run_morvane({"lint", "in", "--format", "gitlab"}, folder.path()).output;
  constexpr std::string_view member = "\"fingerprint\": ";
  std::vector<std::string> all;
  for (std::size_t at = report.find(member); at != std::string::npos;
       at = report.find(member, at + 1)) {
    all.push_back(report.substr(at + member.size(), 34));
  }
  return all;
}

TEST_F(FindingFormats, GiveEachFindingAFingerprintThatLinesDoNotChange) {
  const std::vector<std::string> before = fingerprints(folder, "");
  ASSERT_EQ(before.size(), 2U);
  EXPECT_NE(before[0], before[1]);
  EXPECT_EQ(fingerprints(folder, "/* new */\n"), before);
}

TEST_F(FindingFormats, ShowAFolderAsGithubDoes) {
  std::filesystem::rename(folder.path("in"), folder.path("a,b:c%"));
  folder.write("a,b:c%/net_split_.dvi", "image");
  folder.write("a,b:c%/net_split_.h", "");
  folder.write("a,b:c%/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_qubrix_demangled_name \"conv%:0\"\n");
  expect_outcome(
      run({"lint", "a,b:c%", "--format", "github", "-q", "--notes", "--ignore", "default-used"}), 1,
      "::error file=a%2Cb%3Ac%25/net_split_.dvi,line=1,col=1,title=bad-index::the name has "
      "_split_, "
      "but no index before the extension: the image is left out\n"
      "::notice file=a%2Cb%3Ac%25/net_split_.h,line=1,col=1,title=unused-file::the file belongs to "
      "no "
      "image: it is not read\n"
      "::warning file=a%2Cb%3Ac%25/net.h,line=4,col=41,title=cut-name::the value \"conv%25:0\" is "
      "cut at a separator: net_data_qubrix_demangled_name becomes \"conv%25\"\n");
}

TEST_F(FindingFormats, ShowPackagesAsGithubDoes) {
  folder.write("net.bin", header(1) + bytes(sound_dvi(0, "", 0, 0)) + image());
  expect_outcome(
      run({"check", "net.bin", "none.bin", "--format", "github", "--ignore", "dvi-without-ports"}),
      2,
      "::error file=net.bin,line=1,title=empty-name::0x28: DVI 0: dag_name is empty\n"
      "::error file=none.bin,line=1,col=1,title=unreadable-file::No such file or directory\n",
      "morvane: none.bin: No such file or directory\n");
}

TEST_F(FindingFormats, HoldTheExplanationsInSarif) {
  const run_result found = run({"lint", "in", "-q", "--format", "sarif"});
  EXPECT_NE(found.output.find(
                "{\"id\": \"no-dvis\", \"shortDescription\": {\"text\": \"The package has no DVI, "
                "so nothing was checked.\"}, \"help\": {\"text\": \"The package has no DVI, so "
                "nothing was checked.\\n\\n    net.bin:0x8: error: the package has no DVI, so "
                "nothing was checked [no-dvis]\\n\\nmorvane_gen writes no such package. Find out "
                "where the file comes from.\\n\"}, "),
            std::string::npos)
      << found.output;
}

TEST_F(FindingFormats, AreWrittenByPackWhetherItPacksOrNot) {
  expect_outcome(
      run({"pack", "in", "-o", "net.bin", "--format", "text", "--format", "json:a.json"}), 0,
      std::string(cut_line) +
          "net.bin: packed, 1 DVI, 1 port, without vproc records, 1253 bytes\n");
  EXPECT_EQ(folder.read("a.json"), json_text);
  expect_outcome(run({"pack", "in", "-o", "net.bin", "--format", "json", "--werror"}), 1, json_text,
                 "morvane: in: 0 errors, 1 warning: nothing is packed\n");
  expect_outcome(run({"pack", "in", "-o", "net.bin", "--format", "json"}), 0, json_text);
  expect_outcome(run({"pack", "none", "-o", "net.bin", "--format", "json"}), 2,
                 "{\"folder\": \"none\", \"findings\": [], \"failure\": \"No such file or "
                 "directory\"}\n",
                 "morvane: none: No such file or directory\n");
}

TEST_F(FindingFormats, DoNotReplaceWhatTheRunReadsOrWrites) {
  folder.write("net.bin", sound_package());
  std::filesystem::create_hard_link(folder.path("in/net.dvi"), folder.path("linked"));
  const auto before = folder.files();
  const auto expect_refused = [&](const std::vector<std::string>& words, const std::string& path) {
    expect_outcome(run(words), 2, "",
                   "morvane: " + path + ": is an input or another output of this run\n");
    EXPECT_EQ(folder.files(), before);
  };
  expect_refused({"lint", "in", "--write-baseline", "in/net.h"}, "in/net.h");
  expect_refused({"lint", "in", "--format", "json:in/new.h"}, "in/new.h");
  expect_refused({"lint", "in", "--format", "json:linked"}, "linked");
  expect_refused({"lint", "in", "--format", "json:a", "--write-baseline", "./a"}, "./a");
  expect_refused({"lint", "in", "--format", "json:net.bin", "--baseline", "net.bin"}, "net.bin");
  expect_refused({"check", "sound.bin", "net.bin", "--format", "sarif:net.bin"}, "net.bin");
  expect_refused({"pack", "in", "-o", "new.bin", "--format", "sarif:new.bin"}, "new.bin");
  expect_refused({"pack", "in", "-o", "new.bin", "--depfile", "d", "--write-baseline", "d"}, "d");
  expect_refused({"pack", "in", "-o", "new.bin", "--format", "json:in/net.dvi"}, "in/net.dvi");
}

TEST_F(FindingFormats, SayWhyAFileCannotBeWritten) {
  expect_outcome(run({"lint", "in", "--format", "json:none/a.json"}), 2, "",
                 "morvane: none/a.json: No such file or directory\n");
  expect_outcome(run({"lint", "in", "--write-baseline", "in"}), 2, "",
                 "morvane: in: Is a directory\n");
}

}  // namespace
}  // namespace morvane::test
