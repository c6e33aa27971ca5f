#include "driver/options.h"

#include <gtest/gtest.h>

#include "command_line.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::printed_by;

class ParseOptions : public test::FreshSettings {
 protected:
  /// Reads these words. The messages of getopt_long go to diagnostics.
  int parse(std::vector<std::string> words) {
    test::command_line line(std::move(words));
    int status = 0;
    testing::internal::CaptureStderr();
    output = printed_by([&] { status = parse_options(line.argc(), line.argv()); });
    diagnostics = testing::internal::GetCapturedStderr();
    return status;
  }

  std::string output;
  std::string diagnostics;
};

TEST_F(ParseOptions, LeaveTheDefaultsWithoutAny) {
  EXPECT_EQ(parse({}), 0);
  EXPECT_EQ(settings.filename, "morvane_gen.bin");
  EXPECT_EQ(settings.dir, "dirpath");
  EXPECT_EQ(settings.parsedir, "./");
  EXPECT_FALSE(settings.verbose);
  EXPECT_FALSE(settings.vproc);
  EXPECT_FALSE(settings.version);
  EXPECT_FALSE(settings.help);
}

TEST_F(ParseOptions, AreTakenInTheirShortForm) {
  EXPECT_EQ(parse({"-f", "net.bin", "-d", "out", "-p", "see", "-v", "-c", "-h"}), 0);
  EXPECT_EQ(settings.filename, "net.bin");
  EXPECT_EQ(settings.dir, "out");
  EXPECT_EQ(settings.parsedir, "see");
  EXPECT_TRUE(settings.verbose);
  EXPECT_TRUE(settings.vproc);
  EXPECT_TRUE(settings.help);
  EXPECT_FALSE(settings.version);
}

TEST_F(ParseOptions, AreTakenInTheirLongForm) {
  EXPECT_EQ(parse({"--filename", "net.bin", "--dir=out", "--parsedir", "see", "--verbose",
                   "--vproc", "--version", "--help"}),
            0);
  EXPECT_EQ(settings.filename, "net.bin");
  EXPECT_EQ(settings.dir, "out");
  EXPECT_EQ(settings.parsedir, "see");
  EXPECT_TRUE(settings.verbose);
  EXPECT_TRUE(settings.vproc);
  EXPECT_TRUE(settings.version);
  EXPECT_TRUE(settings.help);
}

TEST_F(ParseOptions, MayBeWrittenTogetherOrCutShort) {
  EXPECT_EQ(parse({"-vcdout", "--file", "net.bin"}), 0);
  EXPECT_TRUE(settings.verbose);
  EXPECT_TRUE(settings.vproc);
  EXPECT_EQ(settings.dir, "out");
  EXPECT_EQ(settings.filename, "net.bin");
}

TEST_F(ParseOptions, OverwriteWhatEarlierOnesSet) {
  EXPECT_EQ(parse({"-d", "longer/folder", "-v", "-d", "out", "-v"}), 0);
  EXPECT_EQ(settings.dir, "out");
  EXPECT_TRUE(settings.verbose);
}

TEST_F(ParseOptions, PassOverOtherWords) {
  EXPECT_EQ(parse({"word", "-v", "other"}), 0);
  EXPECT_TRUE(settings.verbose);
  EXPECT_EQ(settings.dir, "dirpath");
}

TEST_F(ParseOptions, EndAtTwoDashes) {
  EXPECT_EQ(parse({"--", "-v"}), 0);
  EXPECT_FALSE(settings.verbose);
}

TEST_F(ParseOptions, MayHaveAnEmptyName) {
  EXPECT_EQ(parse({"-d", ""}), 0);
  EXPECT_EQ(settings.dir, "");
}

TEST_F(ParseOptions, TakeNamesOf2048Characters) {
  const std::string name(2048, 'n');
  EXPECT_EQ(parse({"-f", name, "-d", name, "-p", name}), 0);
  EXPECT_EQ(settings.filename, name);
  EXPECT_EQ(settings.dir, name);
  EXPECT_EQ(settings.parsedir, name);
  EXPECT_EQ(output, "");
}

TEST_F(ParseOptions, RefuseAPackageNameOf2049Characters) {
  EXPECT_EQ(parse({"-c", "-f", std::string(2049, 'n'), "-v"}), 1);
  EXPECT_EQ(output, "error: filename exceed 2048\n");
  EXPECT_EQ(settings.filename, "morvane_gen.bin");
  EXPECT_TRUE(settings.vproc);
  EXPECT_FALSE(settings.verbose);
}

TEST_F(ParseOptions, RefuseAFolderNameOf2049Characters) {
  EXPECT_EQ(parse({"-d", std::string(2049, 'n')}), 1);
  EXPECT_EQ(output, "error: directory name exceed 2048\n");
  EXPECT_EQ(settings.dir, "dirpath");
}

TEST_F(ParseOptions, RefuseAParseFolderNameOf2049Characters) {
  EXPECT_EQ(parse({"-p", std::string(2049, 'n')}), 1);
  EXPECT_EQ(output, "error: parse folder name exceed 2048\n");
  EXPECT_EQ(settings.parsedir, "./");
}

TEST_F(ParseOptions, StopAtAnUnknownSwitch) {
  EXPECT_EQ(parse({"-v", "-x", "-c"}), -1);
  EXPECT_EQ(output, "morvane_gen: unknown switch\n");
  EXPECT_NE(diagnostics, "");
  EXPECT_TRUE(settings.verbose);
  EXPECT_FALSE(settings.vproc);
}

TEST_F(ParseOptions, StopAtAnUnknownLongSwitch) {
  EXPECT_EQ(parse({"--package", "-c"}), -1);
  EXPECT_EQ(output, "morvane_gen: unknown switch\n");
  EXPECT_FALSE(settings.vproc);
}

TEST_F(ParseOptions, StopAtAMissingName) {
  EXPECT_EQ(parse({"-v", "-f"}), -1);
  EXPECT_EQ(output, "morvane_gen: unknown switch\n");
  EXPECT_NE(diagnostics, "");
  EXPECT_EQ(settings.filename, "morvane_gen.bin");
}

TEST_F(ParseOptions, StopAtAnAmbiguousShortening) {
  EXPECT_EQ(parse({"--ver"}), -1);
  EXPECT_EQ(output, "morvane_gen: unknown switch\n");
}

}  // namespace
}  // namespace morvane
