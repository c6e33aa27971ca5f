// An inspection whose outputs have the names of folders. Headers are deleted first, empty folders
// in their places too; a folder with entries, and any folder in an image's place, stays.
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <filesystem>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

/// A package of two DVIs, "one" and "two", with images of a byte each.
class FoldersInTheWay : public tool_test {
 protected:
  void SetUp() override {
    folder.write("in/a_split_0.dvi", "1");
    folder.write("in/a_split_0.h", "#define one_DAG_NAME one\n#define one_image_size 1\n");
    folder.write("in/a_split_1.dvi", "2");
    folder.write("in/a_split_1.h", "#define two_DAG_NAME two\n#define two_image_size 1\n");
    ASSERT_EQ(tool({"-d", "in", "-f", "net.bin"}).status, 0);
  }

  /// What the inspection prints behind the report.
  [[nodiscard]] std::string inspect() const {
    const run_result run = tool({"-f", "net.bin", "-v"});
    EXPECT_EQ(run.status, 1);
    return run.output;
  }
};

TEST_F(FoldersInTheWay, OfAHeaderIsRemovedIfItIsEmpty) {
  const std::string undisturbed = inspect();
  const auto files = folder.files();
  std::filesystem::remove(folder.path("parse/_one.h"));
  folder.make_folder("parse/_one.h");
  EXPECT_EQ(inspect(), undisturbed);
  EXPECT_EQ(folder.files(), files);
}

/// The names that were created in a folder and deleted from it, one after the other.
std::string changes(int watch) {
  std::string text;
  alignas(inotify_event) std::array<char, 4096> events{};
  const ssize_t size = ::read(watch, events.data(), events.size());
  for (ssize_t at = 0; at < size;) {
    inotify_event event{};
    std::memcpy(&event, events.data() + at, sizeof event);
    const char* const name = events.data() + at + sizeof event;
    text += std::string((event.mask & IN_DELETE) != 0 ? "delete " : "create ") + name + "\n";
    at += static_cast<ssize_t>(sizeof event + event.len);
  }
  return text;
}

TEST_F(FoldersInTheWay, AreDeletedBeforeTheFirstFileIsMade) {
  folder.write("parse/_one.h", "older");
  folder.make_folder("parse/_two.h");
  folder.write("parse/one.dvi", "older");
  const int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  ASSERT_GE(::inotify_add_watch(watch, folder.path("parse").c_str(), IN_CREATE | IN_DELETE), 0);
  EXPECT_NE(inspect(), "");
  EXPECT_EQ(changes(watch),
            "delete _one.h\n"
            "delete _two.h\n"
            "create _one.h\n"
            "create _two.h\n"
            "delete one.dvi\n"
            "create one.dvi\n"
            "create two.dvi\n");
  ::close(watch);
}

}  // namespace
}  // namespace morvane::test
