// Names that would do something to a terminal, a page or a reader of JSON.
#include <gtest/gtest.h>

#include <algorithm>

#include "cli/outcome.h"
#include "harness/packages.h"

namespace morvane::test {
namespace {

/// An override of the direction, and a code that means no character: nothing is wrong with such a
/// name in a package.
const std::string turning = "\xE2\x80\xAEn\xEF\xBF\xBE";

/// DEL, and a control character of two bytes.
const std::string controls = "\x7F\xC2\x85";

/// A DVI with an input and an output of its own.
std::string package_named(const std::string& name) {
  return header(1) + bytes(sound_dvi(0, name)) + bytes(sound_port(name, 0)) +
         bytes(sound_port(name + "o", 16)) + image() + bytes(vproc_desc{1, 1, 268}) +
         bytes(variable(name)) + bytes(smb(name));
}

/// A folder with packages and a compiler output folder whose names and files are hostile.
struct hostile_folder : scratch_folder {
  explicit hostile_folder(const std::string& name) {
    write(name, package_named(name));
    write("old.bin", package_named("old"));
    write("damaged" + name, "");
    write("in/" + name + ".dvi", "image");
    write("in/" + name + ".h",
          "#define " + name + "_DAG_NAME \"" + name + "\"\n#define " + name + "_image_size 9\n");
    make_folder("out");
  }
};

/// What a command prints, all of it.
std::string printed(const scratch_folder& folder, const std::vector<std::string>& arguments) {
  const run_result run = run_morvane(arguments, folder.path());
  EXPECT_LE(run.status, 2);
  return run.output + run.diagnostics;
}

TEST(HostileNames, AreEscapedInTexts) {
  const hostile_folder folder(turning);
  const std::vector<std::vector<std::string>> commands{
      {"show", turning},
      {"show", "damaged" + turning},
      {"check", "--notes", turning},
      {"check", "damaged" + turning},
      {"check", "none" + turning},
      {"diff", "old.bin", turning},
      {"diff", "damaged" + turning, turning},
      {"extract", "--list", turning},
      {"extract", turning, "-o", "out"},
      {"extract", "old.bin", turning},
      {"lint", "in"},
      {"pack", "in", "-o", "net.bin"},
      {"report", turning},
      {"report", turning, "--against", "old.bin"},
      {turning},
      {"--" + turning},
      {"show", "old.bin", turning},
      {"check", "--format", turning, "old.bin"},
      {"lint", "--ignore", turning, "in"},
      {"lint", "--baseline", turning, "in"},
      {"lint", "--format", "github", "in"},
      {"check", "--format", "github", "none" + turning},
      {"explain", turning},
  };
  for (const std::vector<std::string>& command : commands) {
    const std::string text = printed(folder, command);
    EXPECT_NE(text.find("\\u202en\\ufffe"), std::string::npos) << text;
    EXPECT_EQ(text.find('\xE2'), std::string::npos) << text;
    EXPECT_EQ(text.find('\xEF'), std::string::npos) << text;
  }
}

TEST(HostileNames, AreAsciiInJsonAndLoseNothing) {
  const std::string name = turning + controls;
  const hostile_folder folder(name);
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"show", "--json", name},
           {"diff", "--json", "old.bin", name},
           {"check", "--format", "json", name},
           {"lint", "--format", "json", "in"},
       }) {
    const run_result run = run_morvane(command, folder.path());
    EXPECT_NE(run.output.find("\\u202en\\ufffe\\u007f\\u0085"), std::string::npos) << run.output;
    EXPECT_TRUE(std::ranges::all_of(run.output, [](char byte) {
      return byte == '\n' || (byte >= ' ' && byte <= '~');
    })) << run.output;
  }
}

TEST(HostileNames, AreAsciiForReviewTools) {
  const std::string name = turning + controls;
  const hostile_folder folder(name);
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"check", "--format", "sarif", name, "none" + name},
           {"lint", "--format", "sarif", "in"},
           {"check", "--format", "gitlab", name, "none" + name},
           {"lint", "--format", "gitlab", "in"},
       }) {
    const std::string output = run_morvane(command, folder.path()).output;
    EXPECT_TRUE(std::ranges::all_of(output, [](char byte) {
      return byte == '\n' || (byte >= ' ' && byte <= '~');
    })) << output;
  }
}

}  // namespace
}  // namespace morvane::test
