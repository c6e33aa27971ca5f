// What shows that an input of a pack run was changed meanwhile.
#include "companion/input_states.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>

#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;
using companion::changed_file;
using companion::file_states;
using companion::state_of;

class InputStates : public testing::Test {
 protected:
  void SetUp() override {
    folder.write("net.dvi", "image");
    folder.write("net.h", "header");
  }

  [[nodiscard]] file_states states() const {
    file_states all;
    for (const std::string& path : paths) {
      all.push_back(state_of(open_to_read(path).handle));
    }
    return all;
  }

  scratch_folder folder;
  const std::vector<std::string> paths{folder.path("net.dvi"), folder.path("net.h")};
};

TEST_F(InputStates, AreThoseOfUnchangedFiles) {
  EXPECT_EQ(changed_file(paths, states()), "");
}

TEST_F(InputStates, ShowAnotherSize) {
  const file_states before = states();
  folder.write("net.h", "longer header");
  EXPECT_EQ(changed_file(paths, before), paths[1]);
}

TEST_F(InputStates, ShowAnotherTime) {
  const file_states before = states();
  fs::last_write_time(paths[0], fs::last_write_time(paths[0]) - std::chrono::nanoseconds(1));
  EXPECT_EQ(changed_file(paths, before), paths[0]);
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

TEST_F(InputStates, ShowAnotherFile) {
  file_states before = states();
  ++before[1].identity.inode;
  EXPECT_EQ(changed_file(paths, before), paths[1]);
}

TEST_F(InputStates, ShowAMissingFile) {
  const file_states before = states();
  fs::remove(paths[0]);
  EXPECT_EQ(changed_file(paths, before), paths[0]);
}

TEST_F(InputStates, HaveAnErrorForWhatIsNoRegularFile) {
  folder.make_folder("folder");
  EXPECT_EQ(state_of(open_to_read(folder.path("folder")).handle).error, EINVAL);
  EXPECT_EQ(state_of(open_to_read(folder.path("missing")).handle).error, EBADF);
  EXPECT_EQ(state_of(open_to_read(paths[0]).handle).error, 0);
}

}  // namespace
}  // namespace morvane::test
