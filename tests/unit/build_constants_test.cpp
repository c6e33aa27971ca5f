#include "format/build_constants.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(VersionText, ShowsVersionAndHashOfThisBuild) {
  EXPECT_EQ(version_text(version_word, revision_hash()), "version 2.1.6 ( HASH b3b3814 )");
}

TEST(VersionText, FillsAShortHashWithZerosToSevenDigits) {
  EXPECT_EQ(version_text(0, 0), "version 0.0.0 ( HASH 0000000 )");
  EXPECT_EQ(version_text(0x02010006, 0xabc), "version 2.1.6 ( HASH 0000abc )");
}

TEST(VersionText, ShowsEveryByteOfAnyVersionAndHash) {
  EXPECT_EQ(version_text(0xFFFFFFFF, 0xFFFFFFFF), "version 255.255.65535 ( HASH ffffffff )");
}

TEST(RevisionHash, IsTheNumberOfItsText) {
  EXPECT_EQ(revision_hash(), 0x0B3B3814U);
}

}  // namespace
}  // namespace morvane
