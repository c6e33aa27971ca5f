#include "driver/package_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "harness/scratch_folder.h"
#include "printed_text.h"
#include "sample_records.h"

namespace morvane {
namespace {

using test::printed_by;
using test::scratch_folder;

class PackageWriter : public testing::Test {
 protected:
  void append(std::string_view text) { append_bytes(package, std::as_bytes(std::span(text))); }

  /// Appends bytes of a file in the folder. Returns the printed text.
  std::string copy(std::string_view name, std::int32_t count, int status) {
    return printed_by(
        [&] { EXPECT_EQ(read_file_bytes(package, folder.path(name), count), status); });
  }

  std::string finished() {
    close_package(package);
    return folder.read("package");
  }

  scratch_folder folder;
  package_writer package{.file = open_to_write(folder.path("package")).handle};
};

TEST_F(PackageWriter, WritesBytesInTheirOrder) {
  append("one");
  append("");
  append("two");
  EXPECT_EQ(finished(), "onetwo");
}

TEST_F(PackageWriter, WritesMoreThanItsBufferHolds) {
  const std::string first(256 * 1024 - 1, 'a');
  const std::string second(2 * 256 * 1024 + 3, 'b');
  append(first);
  append(second);
  append("c");
  EXPECT_EQ(finished(), first + second + "c");
}

TEST_F(PackageWriter, WritesAListOfRecordsAsOneBlock) {
  append_records(package, std::vector{test::smb_of("a", 1), test::smb_of("b", 2)});
  append_records(package, std::vector<smb_desc>{});
  EXPECT_EQ(finished(),
            test::record_text(test::smb_of("a", 1)) + test::record_text(test::smb_of("b", 2)));
}

TEST_F(PackageWriter, ClosesItsFile) {
  close_package(package);
  EXPECT_FALSE(package.file.is_open());
}

TEST_F(PackageWriter, CopiesAFile) {
  folder.write("a.dvi", "image");
  append("<");
  EXPECT_EQ(copy("a.dvi", 5, 0), "");
  append(">");
  EXPECT_EQ(finished(), "<image>");
}

TEST_F(PackageWriter, CopiesOnlyTheFirstBytesOfALongerFile) {
  folder.write("a.dvi", "image and more");
  EXPECT_EQ(copy("a.dvi", 5, 0), "");
  EXPECT_EQ(copy("a.dvi", 0, 0), "");
  EXPECT_EQ(finished(), "image");
}

TEST_F(PackageWriter, CopiesAFileThatIsLargerThanItsBuffer) {
  std::string image(3 * 256 * 1024 + 7, 'i');
  image.front() = '<';
  image.back() = '>';
  folder.write("a.dvi", image);
  append("x");
  EXPECT_EQ(copy("a.dvi", static_cast<std::int32_t>(image.size()), 0), "");
  append("y");
  EXPECT_EQ(finished(), "x" + image + "y");
}

TEST_F(PackageWriter, ReportsAFileThatCannotBeOpened) {
  append("x");
  EXPECT_EQ(copy("missing.dvi", 5, -1), "can't open file " + folder.path("missing.dvi") + "\n");
  EXPECT_EQ(finished(), "x");
}

TEST_F(PackageWriter, TakesNothingOfAFileThatIsTooShort) {
  folder.write("a.dvi", "image");
  append("x");
  EXPECT_EQ(copy("a.dvi", 6, -1),
            "error: fail to read 6 bytes from " + folder.path("a.dvi") + "\n");
  EXPECT_EQ(finished(), "x");
}

TEST_F(PackageWriter, TakesANegativeCountForMoreThanAnyFileHolds) {
  folder.write("a.dvi", "image");
  EXPECT_EQ(copy("a.dvi", -1, -1),
            "error: fail to read -1 bytes from " + folder.path("a.dvi") + "\n");
  EXPECT_EQ(copy("missing.dvi", -1, -1), "can't open file " + folder.path("missing.dvi") + "\n");
  EXPECT_EQ(finished(), "");
}

TEST_F(PackageWriter, GetsNoBytesFromAFolder) {
  folder.make_folder("a.dvi");
  EXPECT_EQ(copy("a.dvi", 1, -1),
            "error: fail to read 1 bytes from " + folder.path("a.dvi") + "\n");
  EXPECT_EQ(copy("a.dvi", 0, 0), "");
  EXPECT_EQ(finished(), "");
}

/// Fills a pipe with a text while the test reads from it.
std::thread fill_pipe(const std::string& path, const std::string& text) {
  EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0);
  // Opened to read and write, so that neither end waits for the other.
  const int descriptor = ::open(path.c_str(), O_RDWR);
  return std::thread(
      [descriptor, text] { write_bytes(file_handle(descriptor), std::as_bytes(std::span(text))); });
}

TEST_F(PackageWriter, CutsOffAgainWhatAFileOfUnknownSizeLacks) {
  // Larger than the buffer, so that its first part is written before its end is read.
  const std::string too_short(2 * 256 * 1024, 'i');
  append("x");
  std::thread writer = fill_pipe(folder.path("a.dvi"), too_short);
  EXPECT_EQ(copy("a.dvi", 2 * 256 * 1024 + 1, -1),
            "error: fail to read 524289 bytes from " + folder.path("a.dvi") + "\n");
  writer.join();
  append("y");
  EXPECT_EQ(finished(), "xy");
}

TEST_F(PackageWriter, CutsOffWhatIsStillInItsBufferAfterTheFirstPartWasWritten) {
  const std::string before(256 * 1024 + 1, 'b');
  append(before);
  std::thread writer = fill_pipe(folder.path("a.dvi"), "image");
  EXPECT_EQ(copy("a.dvi", 6, -1),
            "error: fail to read 6 bytes from " + folder.path("a.dvi") + "\n");
  writer.join();
  append("y");
  EXPECT_EQ(finished(), before + "y");
}

/// So many bytes, each different from those around it.
std::string counting_bytes(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i < size; ++i) {
    text[i] = static_cast<char>(i % 251);
  }
  return text;
}

TEST_F(PackageWriter, CopiesAFileThatTheSystemCopies) {
  const std::string image = counting_bytes(3 * 1024 * 1024 + 7);
  folder.write("a.dvi", image);
  folder.write("b.dvi", "image");
  append("x");
  EXPECT_EQ(copy("a.dvi", static_cast<std::int32_t>(image.size()), 0), "");
  append("y");
  EXPECT_EQ(copy("b.dvi", 5, 0), "");
  EXPECT_EQ(copy("a.dvi", 1024 * 1024, 0), "");
  EXPECT_EQ(copy("b.dvi", 6, -1),
            "error: fail to read 6 bytes from " + folder.path("b.dvi") + "\n");
  append("z");
  EXPECT_EQ(finished(), "x" + image + "yimage" + image.substr(0, 1024 * 1024) + "z");
}

TEST_F(PackageWriter, CopiesAFileIntoAPipe) {
  const std::string image = counting_bytes(1024 * 1024 + 7);
  folder.write("a.dvi", image);
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe(ends.data()), 0);
  std::string received;
  std::thread reader([&] {
    const file_handle pipe(ends[0]);
    std::array<std::byte, 4096> part{};
    for (std::size_t got = 1; got > 0;) {
      got = read_bytes(pipe, part).count;
      received.append(reinterpret_cast<const char*>(part.data()), got);
    }
  });
  package.file = file_handle(ends[1]);
  EXPECT_EQ(copy("a.dvi", static_cast<std::int32_t>(image.size()), 0), "");
  close_package(package);
  reader.join();
  EXPECT_EQ(received, image);
}

TEST_F(PackageWriter, CopiesAFileThatDoesNotTellItsSize) {
  ASSERT_EQ(::symlink("/proc/self/status", folder.path("a.dvi").c_str()), 0);
  EXPECT_EQ(copy("a.dvi", 5, 0), "");
  EXPECT_EQ(finished(), "Name:");
}

}  // namespace
}  // namespace morvane
