// morvane pack: whose the package is, and who may do what with it and its folder.
#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "cli/outcome.h"
#include "cli/pack/pack_command.h"
#include "cli/package/package_bytes.h"

namespace morvane::test {
namespace {

constexpr uid_t somebody = 12345;
constexpr gid_t some_group = 12346;
constexpr gid_t other_group = 12347;  // of which somebody is a member too
constexpr const char* older = "older";

/// A run as an ordinary user: permissions mean nothing to a privileged one.
class PackPermissions : public testing::Test {
 protected:
  void SetUp() override {
    folder.write("in/net.dvi", "image");
    folder.write("in/net.h", "#define net_DAG_NAME net\n#define net_image_size 5\n");
    folder.write("out/net.bin", older);
  }

  /// Packs in a process of its own. Returns what it prints.
  run_result pack(const cli::pack_options& options, bool quiet = false) const {
    const std::string output = folder.path("output");
    const std::string diagnostics = folder.path("diagnostics");
    const pid_t child = ::fork();
    if (child == 0) {
      ::dup2(::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
      ::dup2(::open(diagnostics.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
      become_ordinary();
      cli::console streams;
      streams.quiet = quiet;
      ::_exit(run_pack(options, streams));
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return {.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            .output = folder.read("output"),
            .diagnostics = folder.read("diagnostics")};
  }

  [[nodiscard]] cli::pack_options options() const {
    return {.folder = folder.path("in"), .package = package(), .depfile = {}};
  }

  [[nodiscard]] std::string package() const { return folder.path("out/net.bin"); }

  [[nodiscard]] struct stat status() const {
    struct stat status {};
    EXPECT_EQ(::stat(package().c_str(), &status), 0);
    return status;
  }

  [[nodiscard]] bool is_new() const { return folder.read("out/net.bin") != older; }

  static bool is_privileged() { return ::geteuid() == 0; }

  scratch_folder folder;

 private:
  void become_ordinary() const {
    if (is_privileged()) {
      for (const char* name : {"", "in", "out"}) {
        static_cast<void>(::chown(folder.path(name).c_str(), somebody, some_group) == 0);
      }
      static_cast<void>(::setgroups(1, &other_group) == 0 && ::setegid(some_group) == 0 &&
                        ::seteuid(somebody) == 0);
    }
  }
};

TEST_F(PackPermissions, ReplaceAPackageThatCannotBeRead) {
  ASSERT_EQ(::chmod(package().c_str(), 0200), 0);
  expect_outcome(pack(options()), 0,
                 package() + ": packed, 1 DVI, 0 ports, without vproc records, 173 bytes\n",
                 is_privileged() ? "morvane: " + package() +
                                       ": does not keep the owner and group of the older file\n"
                                 : "");
  EXPECT_EQ(status().st_mode & 07777U, 0200U);
}

TEST_F(PackPermissions, NeedAFolderThatCanBeReadUnlessNobodyWaitsForTheDisk) {
  ASSERT_EQ(::chmod(folder.path("out").c_str(), 0333), 0);
  cli::pack_options options = this->options();
  expect_outcome(pack(options), 2, "",
                 "morvane: " + package() +
                     ": its folder cannot be read, which only --no-sync does without: Permission "
                     "denied\n");
  EXPECT_FALSE(is_new());
  options.sync = false;
  EXPECT_EQ(pack(options).status, 0);
  EXPECT_TRUE(is_new());
  ASSERT_EQ(::chmod(folder.path("out").c_str(), 0755), 0);
}

TEST_F(PackPermissions, NeedAFolderThatCanBeWritten) {
  ASSERT_EQ(::chmod(folder.path("out").c_str(), 0555), 0);
  expect_outcome(
      pack(options()), 2, "",
      "morvane: " + package() + ": no file can be created in its folder: Permission denied\n");
  EXPECT_FALSE(is_new());
  ASSERT_EQ(::chmod(folder.path("out").c_str(), 0755), 0);
}

TEST_F(PackPermissions, OfAProgramThatActsForItsOwnerAreNotPassedOn) {
  ASSERT_EQ(::chmod(package().c_str(), 07755), 0);
  EXPECT_EQ(run_morvane({"pack", "in", "-q", "-o", "out/net.bin"}, folder.path()).status, 0);
  EXPECT_TRUE(is_new());
  EXPECT_EQ(status().st_mode & 07777U, 0755U);
}

TEST_F(PackPermissions, StayWithTheOwnerAndTheGroup) {
  if (!is_privileged()) {
    GTEST_SKIP() << "only a privileged user can give a file away";
  }
  ASSERT_EQ(::chown(package().c_str(), somebody, some_group), 0);
  ASSERT_EQ(::chmod(package().c_str(), 0640), 0);
  expect_outcome(run_morvane({"pack", "in", "-q", "-o", "out/net.bin"}, folder.path()), 0, "");
  EXPECT_TRUE(is_new());
  EXPECT_EQ(status().st_uid, somebody);
  EXPECT_EQ(status().st_gid, some_group);
  EXPECT_EQ(status().st_mode & 07777U, 0640U);
}

TEST_F(PackPermissions, StayWithTheGroupWhereTheOwnerCannotBeKept) {
  if (!is_privileged()) {
    GTEST_SKIP() << "needs a package of another user";
  }
  ASSERT_EQ(::chown(package().c_str(), 0, other_group), 0);
  EXPECT_EQ(pack(options()).diagnostics,
            "morvane: " + package() + ": does not keep the owner of the older file\n");
  EXPECT_EQ(status().st_uid, somebody);
  EXPECT_EQ(status().st_gid, other_group);
  ASSERT_EQ(::chown(package().c_str(), 0, 0), 0);
  EXPECT_EQ(pack(options(), true).diagnostics, "");
}

TEST_F(PackPermissions, OfAGroupThatIsLostGoToNoOther) {
  if (!is_privileged()) {
    GTEST_SKIP() << "needs a package of another group";
  }
  ASSERT_EQ(::chown(package().c_str(), 0, 0), 0);
  ASSERT_EQ(::chmod(package().c_str(), 0664), 0);
  EXPECT_EQ(pack(options()).diagnostics,
            "morvane: " + package() + ": does not keep the owner and group of the older file\n");
  EXPECT_NE(status().st_gid, 0U);
  EXPECT_EQ(status().st_mode & 07777U, 0644U);
}

}  // namespace
}  // namespace morvane::test
