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

  /// Runs the tool while a lease is held on a file. Returns whether that could be done.
  [[nodiscard]] bool ends_under_lease_on(const std::string& name,
                                         const std::vector<std::string>& arguments,
                                         int status) const {
    const lease held(folder.path(name));
    EXPECT_TRUE(!held.is_held() || tool(arguments).status == status);
    return held.is_held();
  }

  void expect_packed_under_lease_on(const std::string& name) const {
    if (!ends_under_lease_on(name, pack, 0)) {
      GTEST_SKIP() << "no leases on this file system";
    }
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
  if (!ends_under_lease_on("net.bin", {"-f", "net.bin", "-v"}, 1)) {
    GTEST_SKIP() << "no leases on this file system";
  }
  EXPECT_GE(breaks, 1);
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
}

TEST_F(LeasedFile, AnOlderOutputIsReplacedWhateverItsHolderDoes) {
  folder.write("net.bin", package);
  folder.write("parse/net.dvi", "older");
  if (!ends_under_lease_on("parse/net.dvi", {"-f", "net.bin", "-v"}, 1)) {
    GTEST_SKIP() << "no leases on this file system";
  }
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
}

TEST_F(LeasedFile, ThatIsThePackageUnderAnInputsNameIsRefused) {
  std::filesystem::create_hard_link(folder.path("in/net.dvi"), folder.path("net.bin"));
  if (!ends_under_lease_on("in/net.dvi", pack, 255)) {
    GTEST_SKIP() << "no leases on this file system";
  }
  EXPECT_EQ(folder.read("in/net.dvi"), "image");
}

}  // namespace
}  // namespace morvane::test
