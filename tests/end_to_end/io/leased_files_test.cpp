// Files that another program holds a lease on: the tool waits until the holder gives the file up.
#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

volatile sig_atomic_t leased_file = -1;
volatile sig_atomic_t breaks = 0;

/// The system tells a holder by SIGIO that somebody wants the file.
void give_up(int /*signal*/) {
  breaks = breaks + 1;
  ::fcntl(leased_file, F_SETLEASE, F_UNLCK);
}

/// A lease on a file, given up as soon as somebody else opens the file.
class lease {
 public:
  explicit lease(const std::string& path) : file_(::open(path.c_str(), O_RDWR | O_CLOEXEC)) {
    leased_file = file_;
    breaks = 0;
    std::signal(SIGIO, give_up);
    is_held_ = ::fcntl(file_, F_SETLEASE, F_WRLCK) == 0;
  }
  lease(const lease&) = delete;
  lease& operator=(const lease&) = delete;
  ~lease() {
    ::close(file_);
    std::signal(SIGIO, SIG_DFL);
  }

  [[nodiscard]] bool is_held() const { return is_held_; }

 private:
  int file_;
  bool is_held_ = false;
};

class LeasedFile : public tool_test {
 protected:
  void SetUp() override { put_dag("net", dag_lines("net", 5), "image"); }

  /// Packs while a lease is held on a file.
  void expect_packed_under_lease_on(const std::string& name) const {
    const lease held(folder.path(name));
    if (!held.is_held()) {
      GTEST_SKIP() << "no leases on this file system";
    }
    EXPECT_EQ(tool(pack).status, 0);
    EXPECT_GE(breaks, 1);
    expect_bytes(folder.read("net.bin"), package);
  }

  const std::string package =
      package_header(1) + dvi_record({.img_size = 5, .pkg_size = 5, .dag_name = "net"}) + "image";
};

TEST_F(LeasedFile, AHeaderIsReadWhenItIsGivenUp) {
  expect_packed_under_lease_on("in/_net.h");
}

TEST_F(LeasedFile, AnImageIsPackedWhenItIsGivenUp) {
  expect_packed_under_lease_on("in/net.dvi");
}

TEST_F(LeasedFile, AnOlderPackageIsReplacedWhenItIsGivenUp) {
  folder.write("net.bin", "older");
  expect_packed_under_lease_on("net.bin");
}

TEST_F(LeasedFile, APackageIsInspectedWhenItIsGivenUp) {
  folder.write("net.bin", package);
  const lease held(folder.path("net.bin"));
  if (!held.is_held()) {
    GTEST_SKIP() << "no leases on this file system";
  }
  EXPECT_EQ(tool({"-f", "net.bin", "-v"}).status, 1);
  EXPECT_GE(breaks, 1);
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
}

TEST_F(LeasedFile, AnOlderOutputIsReplacedWhateverItsHolderDoes) {
  folder.write("net.bin", package);
  folder.write("parse/net.dvi", "older");
  const lease held(folder.path("parse/net.dvi"));
  if (!held.is_held()) {
    GTEST_SKIP() << "no leases on this file system";
  }
  EXPECT_EQ(tool({"-f", "net.bin", "-v"}).status, 1);
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
}

TEST_F(LeasedFile, ThatIsThePackageUnderAnInputsNameIsRefused) {
  std::filesystem::create_hard_link(folder.path("in/net.dvi"), folder.path("net.bin"));
  const lease held(folder.path("in/net.dvi"));
  if (!held.is_held()) {
    GTEST_SKIP() << "no leases on this file system";
  }
  expect_tool(pack, 255, "error: can't open file net.bin\n");
  EXPECT_EQ(folder.read("in/net.dvi"), "image");
}

}  // namespace
}  // namespace morvane::test
