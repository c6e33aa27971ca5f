// What ends the program when a mapped file cannot be read any more.
#include "cli/files/mapped_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

using cli::mapped_file;

/// What the system does when it cannot read the page of an address from the disk.
void fail_to_read(const void* address) {
  siginfo_t cause{};
  cause.si_code = BUS_ADRERR;
  cause.si_addr = const_cast<void*>(address);
  ::syscall(SYS_rt_tgsigqueueinfo, ::getpid(), ::gettid(), SIGBUS, &cause);
}

TEST(MappedFile, IsFoundByTheAddressesOfItsBytes) {
  const scratch_folder folder;
  folder.write("net.bin", std::string(100000, 'x'));
  const auto map = [&] {
    return mapped_file(open_at(AT_FDCWD, folder.path("net.bin"), O_RDONLY), 100000, "net.bin");
  };
  const mapped_file older = map();
  const mapped_file newer = map();
  for (const mapped_file* const file : {&older, &newer}) {
    EXPECT_EQ(cli::mapped_file_at(file->bytes().data()), file);
    EXPECT_EQ(cli::mapped_file_at(file->bytes().data() + 99999), file);
    EXPECT_NE(cli::mapped_file_at(file->bytes().data() + 100000), file);
  }
  EXPECT_EQ(cli::mapped_file_at(nullptr), nullptr);
  EXPECT_EQ(cli::mapped_file_at(&folder), nullptr);
}

TEST(MappedFile, TellsWhyItsBytesAreLost) {
  const scratch_folder folder;
  folder.write("net.bin", "some bytes");
  const mapped_file file(open_at(AT_FDCWD, folder.path("net.bin"), O_RDONLY), 10, "a\nb");
  testing::internal::CaptureStderr();
  EXPECT_EQ(report_lost_bytes(file), 2);
  std::filesystem::resize_file(folder.path("net.bin"), 9);
  EXPECT_EQ(report_lost_bytes(file), 2);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "morvane: a\\x0ab: Input/output error\n"
            "morvane: a\\x0ab: the file was cut while it was read\n");
}

TEST(MappedFileDeathTest, EndsTheProgramWhenTheDiskFails) {
  if (!run_prefix().empty()) {
    GTEST_SKIP() << "an emulator hides the address that a signal is about";
  }
  const scratch_folder folder;
  folder.write("net.bin", std::string(100000, 'x'));
  const auto map = [&](const char* path) {
    return mapped_file(open_at(AT_FDCWD, folder.path("net.bin"), O_RDONLY), 100000, path);
  };
  const mapped_file older = map("older.bin");
  const mapped_file package = map("net.bin");
  const mapped_file newer = map("newer.bin");
  EXPECT_EXIT(
      {
        cli::end_at_lost_bytes();
        fail_to_read(package.bytes().data() + 99999);
      },
      testing::ExitedWithCode(2), "^morvane: net.bin: Input/output error\n$");
}

TEST(MappedFileDeathTest, LeavesASignalFromOutsideItsUsualEffect) {
  EXPECT_EXIT(
      {
        cli::end_at_lost_bytes();
        ::raise(SIGBUS);
      },
      testing::KilledBySignal(SIGBUS), "");
}

}  // namespace
}  // namespace morvane::test
