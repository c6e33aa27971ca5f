// How the bytes of a package come into memory.
#include "cli/package/package_bytes.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <thread>

#include "cli/files/mapped_file.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

using cli::package_bytes;

std::string text_of(const package_bytes& package) {
  return {package.bytes().begin(), package.bytes().end()};
}

TEST(PackageBytes, AreThoseOfTheFile) {
  const scratch_folder folder;
  folder.write("net.bin", "some bytes");
  package_bytes package;
  EXPECT_EQ(package.load(folder.path("net.bin")), 0);
  EXPECT_EQ(text_of(package), "some bytes");
}

TEST(PackageBytes, AreNoneInAnEmptyFile) {
  const scratch_folder folder;
  folder.write("net.bin", "");
  package_bytes package;
  EXPECT_EQ(package.load(folder.path("net.bin")), 0);
  EXPECT_EQ(text_of(package), "");
}

TEST(PackageBytes, ComeFromAPipeWhoseWriterIsLate) {
  const scratch_folder folder;
  const std::string bytes(1000000, 'x');
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  std::thread writer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    folder.write("pipe", bytes);
  });
  package_bytes package;
  EXPECT_EQ(package.load(folder.path("pipe")), 0);
  writer.join();
  EXPECT_EQ(text_of(package), bytes);
}

TEST(PackageBytes, StayWhenAnotherFileCannotBeRead) {
  const scratch_folder folder;
  folder.write("net.bin", "some bytes");
  package_bytes package;
  ASSERT_EQ(package.load(folder.path("net.bin")), 0);
  EXPECT_EQ(package.load(folder.path("none")), ENOENT);
  EXPECT_EQ(package.load(folder.path()), EISDIR);
  EXPECT_EQ(text_of(package), "some bytes");
}

TEST(PackageBytes, CanBeReadAgainAfterTheirMemoryIsGivenBack) {
  const scratch_folder folder;
  const std::string bytes(100000, 'x');
  folder.write("net.bin", bytes);
  package_bytes package;
  ASSERT_EQ(package.load(folder.path("net.bin")), 0);
  package.release(0, 50000);
  package.release(99999, 1);
  package.release(100000, 0xFFFFFFFFFFFFFFFF);
  package.release(0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF);
  EXPECT_EQ(text_of(package), bytes);
}

TEST(PackageBytesDeathTest, EndTheProgramWhenTheFileIsCut) {
  const scratch_folder folder;
  folder.write("net.bin", std::string(100000, 'x'));
  package_bytes package;
  ASSERT_EQ(package.load(open_at(AT_FDCWD, folder.path("net.bin"), O_RDONLY), "net.bin"), 0);
  std::filesystem::resize_file(folder.path("net.bin"), 0);
  EXPECT_EXIT(
      {
        cli::end_at_lost_bytes();
        static_cast<void>(text_of(package));
      },
      testing::ExitedWithCode(2), "^morvane: net.bin: the file was cut while it was read\n$");
}

/// What the system does when it cannot read the page of an address from the disk.
void fail_to_read(const void* address) {
  siginfo_t cause{};
  cause.si_code = BUS_ADRERR;
  cause.si_addr = const_cast<void*>(address);
  ::syscall(SYS_rt_tgsigqueueinfo, ::getpid(), ::gettid(), SIGBUS, &cause);
}

TEST(PackageBytesDeathTest, EndTheProgramWhenTheDiskFails) {
  const scratch_folder folder;
  folder.write("net.bin", std::string(100000, 'x'));
  package_bytes other;
  package_bytes package;
  ASSERT_EQ(package.load(open_at(AT_FDCWD, folder.path("net.bin"), O_RDONLY), "net.bin"), 0);
  ASSERT_EQ(other.load(folder.path("net.bin")), 0);
  EXPECT_EXIT(
      {
        cli::end_at_lost_bytes();
        fail_to_read(package.bytes().data() + 99999);
      },
      testing::ExitedWithCode(2), "^morvane: net.bin: Input/output error\n$");
}

TEST(PackageBytesDeathTest, EndTheProgramAtASignalFromOutsideAsItWouldEndAnyProgram) {
  EXPECT_EXIT(
      {
        cli::end_at_lost_bytes();
        ::raise(SIGBUS);
      },
      testing::KilledBySignal(SIGBUS), "^$");
}

}  // namespace
}  // namespace morvane::test
