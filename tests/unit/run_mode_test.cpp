#include "driver/run_mode.h"

#include <gtest/gtest.h>

#include "command_line.h"
#include "harness/scratch_folder.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::printed_by;

const std::string usage_begin = "morvane_gen: dump network Dag information to bin file.\nUsage: ";

class SelectRunMode : public test::FreshSettings {
 protected:
  /// Reads these words.
  int select(std::vector<std::string> words) {
    test::command_line line(std::move(words));
    int status = 0;
    testing::internal::CaptureStderr();
    output = printed_by([&] { status = select_run_mode(line.argc(), line.argv()); });
    testing::internal::GetCapturedStderr();
    return status;
  }

  /// Whether exactly these lines and the usage text were printed.
  [[nodiscard]] bool shows_usage(const std::string& before = "") const {
    return output.starts_with(before + usage_begin) &&
           output.ends_with("\t./morvane_gen ...... -c\n\n");
  }

  test::scratch_folder folder;
  std::string output;
};

TEST_F(SelectRunMode, ShowsTheUsageWithoutArguments) {
  EXPECT_EQ(select({}), -1);
  EXPECT_TRUE(shows_usage());
}

TEST_F(SelectRunMode, ShowsTheUsageForAWordThatIsNoOption) {
  EXPECT_EQ(select({"word"}), -1);
  EXPECT_TRUE(shows_usage());
}

TEST_F(SelectRunMode, ShowsTheUsageForVprocAlone) {
  EXPECT_EQ(select({"-c"}), -1);
  EXPECT_TRUE(shows_usage());
}

TEST_F(SelectRunMode, ShowsTheUsageAfterTheMessageOfAnUnknownSwitch) {
  EXPECT_EQ(select({"-x"}), -1);
  EXPECT_TRUE(shows_usage("morvane_gen: unknown switch\n"));
}

TEST_F(SelectRunMode, ShowsTheUsageAfterTheMessageOfALastOptionWithoutName) {
  EXPECT_EQ(select({"-d", "out", "-f"}), -1);
  EXPECT_TRUE(shows_usage("morvane_gen: unknown switch\n"));
}

TEST_F(SelectRunMode, ShowsTheUsageAfterTheMessageOfANameThatIsTooLong) {
  EXPECT_EQ(select({"-f", std::string(2049, 'n')}), -1);
  EXPECT_TRUE(shows_usage("error: filename exceed 2048\n"));
}

TEST_F(SelectRunMode, DoesNotActOnFlagsBeforeAMistake) {
  EXPECT_EQ(select({"--version", "-h", "-x"}), -1);
  EXPECT_TRUE(shows_usage("morvane_gen: unknown switch\n"));
}

TEST_F(SelectRunMode, ShowsTheVersionBeforeAllElse) {
  EXPECT_EQ(select({"--version", "-h", "-d", "x", "-v"}), 1);
  EXPECT_EQ(output, "version 2.1.6 ( HASH b3b3814 )\n");
}

TEST_F(SelectRunMode, ShowsTheUsageOnRequestWithAnotherResult) {
  EXPECT_EQ(select({"-h", "-d", "x", "-v"}), 1);
  EXPECT_TRUE(shows_usage());
}

TEST_F(SelectRunMode, LeavesThePackRunToFollow) {
  EXPECT_EQ(select({"-d", "out", "-v", "-c"}), 0);
  EXPECT_EQ(output, "");
}

TEST_F(SelectRunMode, InspectsThePackageWithoutAnInputFolder) {
  folder.write("net.bin", "");
  EXPECT_EQ(select({"-v", "-f", folder.path("net.bin"), "-p", folder.path()}), 1);
  EXPECT_EQ(output, "version 0.0.0 ( HASH 0000000 ) dvi_num: 0\n\n\nerror: fail to parse file " +
                        folder.path("net.bin") + "\n.dvi files are parsed to folder " +
                        folder.path("parse") + "\n\n");
}

TEST_F(SelectRunMode, TakesTheDefaultNameOfTheInputFolderForNone) {
  EXPECT_EQ(select({"-d", "dirpath", "-v", "-f", folder.path("missing.bin")}), 1);
  EXPECT_EQ(output, "can't open file " + folder.path("missing.bin") + "\n");
}

TEST_F(SelectRunMode, HandsTheVprocFlagToTheInspection) {
  std::string package("\6\0\1\2\x14\x38\x3B\x0B\1\0\0\0", 12);
  package.append(156, '\0');  // the DVI's description
  package.append(12, '\0');   // its counts of vproc records
  folder.write("net.bin", package);
  EXPECT_EQ(select({"-v", "-c", "-f", folder.path("net.bin"), "-p", folder.path()}), 1);
  EXPECT_NE(output.find("vproc_id: 0 dag_name:  variable_num: 0 smb_num: 0\n"), std::string::npos);
}

TEST_F(SelectRunMode, IsFollowedByThePackRunInMain) {
  test::command_line line({"-d", folder.path()});
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(morvane_main(line.argc(), line.argv()), -1); }),
            "error: can't find matched .dvi files and .h files\n");
}

TEST_F(SelectRunMode, IsTheResultOfMainWhenNoPackRunFollows) {
  test::command_line line({"--version"});
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(morvane_main(line.argc(), line.argv()), 1); }),
            "version 2.1.6 ( HASH b3b3814 )\n");
}

TEST_F(SelectRunMode, BeginsWithTheSettingsThatAnEarlierCallLeft) {
  EXPECT_EQ(select({"-f", "first.bin", "-c"}), -1);
  optind = 0;
  EXPECT_EQ(select({"-d", "in"}), 0);
  EXPECT_EQ(settings.filename, "first.bin");
  EXPECT_TRUE(settings.vproc);
}

}  // namespace
}  // namespace morvane
