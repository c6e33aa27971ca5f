#include "inspect/package_reader.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"
#include "sample_records.h"

namespace morvane {
namespace {

using test::record_text;
using test::scratch_folder;
using test::smb_of;

class PackageReader : public testing::Test {
 protected:
  /// A package of these bytes.
  package_reader open(std::string_view content) {
    folder.write("net.bin", content);
    return open_package(folder.path("net.bin"));
  }

  /// The bytes from one read of this size.
  static std::string read(package_reader& package, std::size_t count) {
    std::string text(count, '-');
    text.resize(read_package(package, std::as_writable_bytes(std::span(text))));
    return text;
  }

  /// The content of a file after this number of bytes was extracted to it.
  std::string extract(package_reader& package, std::size_t count) {
    const writable_file image = open_to_write(folder.path("image"));
    empty_file(image.handle);
    extract_bytes(package, image.handle, count);
    return folder.read("image");
  }

  scratch_folder folder;
};

TEST_F(PackageReader, IsClosedForAMissingPackage) {
  EXPECT_FALSE(open_package(folder.path("missing.bin")).file.is_open());
}

TEST_F(PackageReader, KnowsTheSizeOfThePackage) {
  EXPECT_EQ(open("12345").size, 5U);
  EXPECT_EQ(open_package(folder.path()).size, -1);
}

TEST_F(PackageReader, ReadsOnFromWhereItStands) {
  package_reader package = open("123456");
  EXPECT_EQ(read(package, 2), "12");
  EXPECT_EQ(read(package, 3), "345");
  EXPECT_EQ(read(package, 3), "6");
  EXPECT_EQ(read(package, 3), "");
}

TEST_F(PackageReader, LeavesBytesBeyondTheEndAlone) {
  package_reader package = open("12");
  std::string text = "----";
  EXPECT_EQ(read_package(package, std::as_writable_bytes(std::span(text))), 2U);
  EXPECT_EQ(text, "12--");
}

TEST_F(PackageReader, ReadsMoreThanItsBufferHolds) {
  std::string content(2 * 256 * 1024 + 9, 'a');
  content.replace(256 * 1024 - 1, 2, "<>");
  package_reader package = open(content);
  EXPECT_EQ(read(package, 3), "aaa");
  EXPECT_EQ(read(package, content.size()), content.substr(3));
}

TEST_F(PackageReader, GetsNothingFromAFolder) {
  package_reader package = open_package(folder.path());
  EXPECT_TRUE(package.file.is_open());
  EXPECT_EQ(read(package, 4), "");
}

TEST_F(PackageReader, TellsWhetherItHoldsMoreWithoutReadingIt) {
  package_reader package = open("123456");
  EXPECT_TRUE(holds_more(package, 6));
  EXPECT_FALSE(holds_more(package, 7));
  EXPECT_EQ(read(package, 3), "123");
  EXPECT_FALSE(holds_more(package, 4));
  EXPECT_TRUE(holds_more(package, 3));
  EXPECT_EQ(read(package, 4), "456");
  EXPECT_TRUE(holds_more(package, 0));
  EXPECT_FALSE(holds_more(package, 1));
}

TEST_F(PackageReader, TellsSoAcrossTheEndOfItsBuffer) {
  package_reader package = open(std::string(256 * 1024, 'a') + "1234");
  read(package, 256 * 1024 - 1);
  EXPECT_TRUE(holds_more(package, 5));
  EXPECT_FALSE(holds_more(package, 6));
  EXPECT_EQ(read(package, 9), "a1234");
}

TEST_F(PackageReader, ExtractsBytesToAFile) {
  package_reader package = open("<image>");
  read(package, 1);
  EXPECT_EQ(extract(package, 5), "image");
  EXPECT_EQ(read(package, 5), ">");
}

TEST_F(PackageReader, ExtractsWhatIsThere) {
  package_reader package = open("image");
  EXPECT_EQ(extract(package, 2000000000), "image");
  EXPECT_EQ(extract(package, 5), "");
}

TEST_F(PackageReader, ExtractsMoreThanItsBufferHolds) {
  const std::string image = std::string(2 * 256 * 1024, 'i') + "end";
  package_reader package = open("<" + image + ">");
  read(package, 1);
  EXPECT_EQ(extract(package, image.size()), image);
  EXPECT_EQ(read(package, 5), ">");
}

TEST_F(PackageReader, ExtractsWhatTheSystemCopies) {
  std::string image(2 * 1024 * 1024 + 7, 'i');
  image.front() = '<';
  image.back() = '>';
  const std::string package_text = image + "between" + image;
  package_reader package = open(package_text);
  EXPECT_EQ(extract(package, image.size()), image);
  EXPECT_EQ(read(package, 7), "between");
  EXPECT_EQ(extract(package, image.size() + 1), image);
  EXPECT_EQ(read(package, 1), "");
}

TEST_F(PackageReader, PassesOverBytesWithoutAFileForThem) {
  package_reader package = open("<image>");
  extract_bytes(package, file_handle(), 6);
  EXPECT_EQ(read(package, 5), ">");
}

TEST_F(PackageReader, ReadsAListOfRecords) {
  package_reader package = open(record_text(smb_of("a", 1)) + record_text(smb_of("b", 2)) + "rest");
  const auto smbs = read_records<smb_desc>(package, 2);
  EXPECT_EQ(smbs.count, 2U);
  EXPECT_EQ(record_text(smbs[0]), record_text(smb_of("a", 1)));
  EXPECT_EQ(record_text(smbs[1]), record_text(smb_of("b", 2)));
  EXPECT_EQ(read(package, 9), "rest");
}

TEST_F(PackageReader, ReadsNoRecordsForACountOfZero) {
  package_reader package = open("rest");
  EXPECT_EQ(read_records<smb_desc>(package, 0).count, 0U);
  EXPECT_EQ(read(package, 9), "rest");
}

TEST_F(PackageReader, KeepsWhatCameOfACutRecordAndTakesTheRestForZeros) {
  const std::string cut = record_text(smb_of("abc", 0x01020304)).substr(0, 130);
  package_reader package = open(record_text(smb_of("a", 1)) + cut);
  const auto smbs = read_records<smb_desc>(package, 1000000);
  EXPECT_EQ(smbs.count, 1000000U);
  EXPECT_EQ(smbs.present.size(), 2U);
  EXPECT_EQ(smbs[0].vbase_byte_offset, 1U);
  EXPECT_EQ(record_text(smbs[1]), record_text(smb_of("abc", 0x0304)));
  EXPECT_EQ(record_text(smbs[2]), std::string(132, '\0'));
  EXPECT_EQ(record_text(smbs[999999]), std::string(132, '\0'));
}

TEST_F(PackageReader, ReadsMoreRecordsThanItsBufferHolds) {
  std::string content;
  for (std::uint32_t i = 0; i < 5000; ++i) {
    content += record_text(smb_of("s", i));
  }
  package_reader package = open(content);
  const auto smbs = read_records<smb_desc>(package, 5000);
  ASSERT_EQ(smbs.present.size(), 5000U);
  for (std::uint32_t i = 0; i < 5000; ++i) {
    ASSERT_EQ(smbs[i].vbase_byte_offset, i);
  }
}

TEST_F(PackageReader, RefusesACountThatIsNegativeAsASignedNumber) {
  package_reader package = open("");
  EXPECT_THROW(checked_count(package, 0x80000000, 1), std::bad_array_new_length);
  EXPECT_THROW(read_records<smb_desc>(package, 0xFFFFFFFF), std::bad_array_new_length);
  EXPECT_EQ(checked_count(package, 0x7FFFFFFF, 1), 0x7FFFFFFFU);
}

TEST_F(PackageReader, RefusesAListThatNoBufferCouldServe) {
  package_reader package = open("");
  const std::uint32_t most = 4294967296 / 132;
  EXPECT_EQ(checked_count(package, most, 132), most);
  EXPECT_THROW(checked_count(package, most + 1, 132), std::bad_alloc);
}

TEST_F(PackageReader, AcceptsAListAsLongAsAHugePackage) {
  package_reader package = open("");
  package.size = std::uint64_t{132} * 0x7FFFFFFF;
  EXPECT_EQ(checked_count(package, 0x7FFFFFFF, 132), 0x7FFFFFFFU);
  --package.size;
  EXPECT_THROW(checked_count(package, 0x7FFFFFFF, 132), std::bad_alloc);
}

}  // namespace
}  // namespace morvane
