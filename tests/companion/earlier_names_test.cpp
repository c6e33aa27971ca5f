#include "companion/lint/earlier_names.h"

#include <gtest/gtest.h>

#include <string>

namespace morvane::test {
namespace {

using companion::earlier_names;
using companion::earlier_outputs;
using companion::port_flow;

constexpr port_flow narrow{1, 2, 3, 4};
constexpr port_flow wide{1, 2, 3, 5};

TEST(EarlierNames, GiveTheFirstDviOfAName) {
  earlier_names names(4);
  EXPECT_EQ(names.add("a", 0), std::nullopt);
  EXPECT_EQ(names.add("b", 1), std::nullopt);
  EXPECT_EQ(names.add("a", 2), 0U);
  EXPECT_EQ(names.add("a", 3), 0U);
}

TEST(EarlierOutputs, GiveTheDviOfAnOutputWithAnotherFlow) {
  earlier_outputs outputs(4);
  outputs.add("a", narrow, 7);
  EXPECT_EQ(outputs.find_other("a", narrow), std::nullopt);
  EXPECT_EQ(outputs.find_other("a", wide), 7U);
  EXPECT_EQ(outputs.find_other("b", wide), std::nullopt);
}

TEST(EarlierOutputs, KeepTheLastOfAName) {
  earlier_outputs outputs(2);
  outputs.add("a", narrow, 0);
  outputs.add("a", wide, 1);
  EXPECT_EQ(outputs.find_other("a", wide), std::nullopt);
  EXPECT_EQ(outputs.find_other("a", narrow), 1U);
}

TEST(EarlierOutputs, AreFoundAgainWhenThereAreMoreThanExpected) {
  earlier_outputs outputs(0);
  for (std::uint32_t i = 0; i < 1000; ++i) {
    outputs.add("port_" + std::to_string(i), narrow, i);
  }
  for (std::uint32_t i = 0; i < 1000; ++i) {
    EXPECT_EQ(outputs.find_other("port_" + std::to_string(i), wide), i);
  }
}

}  // namespace
}  // namespace morvane::test
