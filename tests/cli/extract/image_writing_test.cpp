// An image, written to a descriptor.
#include "cli/extract/image_writing.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "cli/sound_package.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

constexpr std::uint32_t written_size = 3U << 20U;

/// A folder with a package of one large image, and a file to write it to.
struct image_to_write {
  scratch_folder folder;
  cli::opened_package package;
  cli::progress_line progress;
  int descriptor = -1;

  image_to_write() {
    folder.write("net.bin",
                 header(1) + bytes(dvi("net", written_size)) + std::string(written_size, 'A'));
    EXPECT_EQ(open_package(folder.path("net.bin"), package), 0);
    descriptor = ::open(folder.path("image").c_str(), O_WRONLY | O_CREAT, 0600);
  }
  ~image_to_write() { ::close(descriptor); }

  [[nodiscard]] int write(const cli::blocked_signals* signals) {
    return write_image(package, package.bytes.bytes().subspan(168), descriptor, signals, progress);
  }
};

TEST(ImageWriting, WritesTheWholeImage) {
  image_to_write image;
  EXPECT_EQ(image.write(nullptr), 0);
  EXPECT_EQ(image.folder.read("image"), std::string(written_size, 'A'));
}

TEST(ImageWriting, WritesToAFileInAppendMode) {
  image_to_write image;
  EXPECT_EQ(::fcntl(image.descriptor, F_SETFL, O_APPEND), 0);
  EXPECT_EQ(::write(image.descriptor, "before", 6), 6);
  EXPECT_EQ(image.write(nullptr), 0);
  EXPECT_EQ(image.folder.read("image"), std::string("before").append(written_size, 'A'));
}

TEST(ImageWriting, StopsSoonWhenASignalIsWaiting) {
  image_to_write image;
  const cli::blocked_signals signals;
  ::raise(SIGTERM);
  EXPECT_EQ(image.write(&signals), EINTR);
  sigset_t waiting{};
  ::sigemptyset(&waiting);
  ::sigaddset(&waiting, SIGTERM);
  int taken = 0;
  ::sigwait(&waiting, &taken);
  EXPECT_EQ(std::filesystem::file_size(image.folder.path("image")), 1U << 20U);
}

TEST(ImageWriting, TellsThatThePackageWasCutMeanwhile) {
  image_to_write image;
  for (const std::uint32_t size : {168 + written_size - 1, 1U << 20U, 100U}) {
    std::filesystem::resize_file(image.folder.path("net.bin"), size);
    EXPECT_EQ(image.write(nullptr), EFAULT) << size;
  }
}

}  // namespace
}  // namespace morvane::test
