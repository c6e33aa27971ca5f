// How the bytes of a package come into memory.
#include "cli/package/package_bytes.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <thread>

#include "cli/files/bus_errors.h"
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
  ASSERT_EQ(package.load(folder.path("net.bin")), 0);
  std::filesystem::resize_file(folder.path("net.bin"), 0);
  EXPECT_EXIT(
      {
        cli::end_at_bus_errors();
        static_cast<void>(text_of(package));
      },
      testing::ExitedWithCode(2),
      "^morvane: a file cannot be read any more: it was cut, or its disk fails\n$");
}

}  // namespace
}  // namespace morvane::test
