// Names that were probably meant to be the same.
#include "cli/lint/header/macro_names.h"

#include <gtest/gtest.h>

namespace morvane::cli {
namespace {

TEST(IsNearly, AllowsTwoEdits) {
  EXPECT_TRUE(is_nearly("background", "background"));
  EXPECT_TRUE(is_nearly("background", "backgruond"));
  EXPECT_TRUE(is_nearly("background", "backrounds"));
  EXPECT_TRUE(is_nearly("background", "ackgroun"));
  EXPECT_TRUE(is_nearly("", "in"));
  EXPECT_TRUE(is_nearly("in", ""));
}

TEST(IsNearly, AllowsLettersOfTheOtherCase) {
  EXPECT_TRUE(is_nearly("background", "BackGROUND"));
}

TEST(IsNearly, DoesNotAllowThreeEdits) {
  EXPECT_FALSE(is_nearly("background", "ackgrou"));
  EXPECT_FALSE(is_nearly("background", "xbackgrXund_"));
  EXPECT_FALSE(is_nearly("abc", "xyz"));
  EXPECT_FALSE(is_nearly("", "abc"));
}

}  // namespace
}  // namespace morvane::cli
