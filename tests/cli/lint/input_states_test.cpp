// What shows that an input of a pack run was changed meanwhile.
#include "cli/lint/input_states.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;
using cli::changed_file;
using cli::file_states;
using cli::open_input;

cli::file_state state_at(const std::string& path) {
  cli::file_state state;
  open_input(path, state);
  return state;
}

class InputStates : public testing::Test {
 protected:
  void SetUp() override {
    folder.write("net.dvi", "image");
    folder.write("net.h", "header");
  }

  [[nodiscard]] file_states states() const {
    file_states all;
    for (const std::string& path : paths) {
      all.push_back(state_at(path));
    }
    return all;
  }

  scratch_folder folder;
  const std::vector<std::string> paths{folder.path("net.dvi"), folder.path("net.h")};
};

TEST_F(InputStates, AreThoseOfUnchangedFiles) {
  EXPECT_EQ(changed_file(paths, states()), "");
}

TEST_F(InputStates, ShowAnotherSizeTimeOrFileAndAMissingFile) {
  const file_states before = states();
  folder.write("net.h", "longer header");
  EXPECT_EQ(changed_file(paths, before), paths[1]);
  fs::last_write_time(paths[0], fs::last_write_time(paths[0]) - std::chrono::nanoseconds(1));
  EXPECT_EQ(changed_file(paths, before), paths[0]);
  file_states other = states();
  ++other[1].identity.inode;
  EXPECT_EQ(changed_file(paths, other), paths[1]);
  const file_states present = states();
  fs::remove(paths[0]);
  EXPECT_EQ(changed_file(paths, present), paths[0]);
}

TEST_F(InputStates, ShowOtherBytesUnderTheOldTime) {
  const file_states before = states();
  const auto time = fs::last_write_time(paths[1]);
  // The time of the change itself cannot be put back. It grows in steps.
  for (int i = 0; i < 1000 && changed_file(paths, before).empty(); ++i) {
    folder.write("net.h", "HEADER");
    fs::last_write_time(paths[1], time);
  }
  EXPECT_EQ(changed_file(paths, before), paths[1]);
}

TEST_F(InputStates, HaveAnErrorForWhatIsNoRegularFile) {
  folder.make_folder("folder");
  EXPECT_EQ(state_at(folder.path("folder")).error, EISDIR);
  EXPECT_EQ(state_at("/dev/null").error, ENOTBLK);
  EXPECT_EQ(state_at(folder.path("missing")).error, ENOENT);
  EXPECT_EQ(state_at(paths[0]).error, 0);
}

}  // namespace
}  // namespace morvane::test
