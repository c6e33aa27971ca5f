#include "inspect/package_reader.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"

namespace morvane {
namespace {

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

  test::scratch_folder folder;
};

TEST_F(PackageReader, ReadsMoreThanItsBufferHolds) {
  std::string content(2 * 256 * 1024 + 9, 'a');
  content.replace(256 * 1024 - 1, 2, "<>");
  package_reader package = open(content);
  EXPECT_EQ(read(package, 3), "aaa");
  EXPECT_EQ(read(package, content.size()), content.substr(3));
}

TEST_F(PackageReader, TellsAcrossTheEndOfItsBufferWhetherItHoldsMore) {
  package_reader package = open(std::string(256 * 1024, 'a').append("1234"));
  read(package, 256 * 1024 - 1);
  EXPECT_TRUE(holds_more(package, 5));
  EXPECT_FALSE(holds_more(package, 6));
  EXPECT_EQ(read(package, 9), "a1234");
}

TEST_F(PackageReader, RefusesACountThatIsNegativeAsASignedNumber) {
  const package_reader package = open("");
  EXPECT_THROW(checked_count(package, 0x80000000, 1), std::bad_array_new_length);
  EXPECT_EQ(checked_count(package, 0x7FFFFFFF, 1), 0x7FFFFFFFU);
}

TEST_F(PackageReader, RefusesAListThatNoBufferCouldServe) {
  const package_reader package = open("");
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
