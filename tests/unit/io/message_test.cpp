#include "io/message.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "unit/printed_text.h"

namespace morvane {
namespace {

using test::printed_by;

TEST(PrintLine, ShowsTheLongestNumbers) {
  EXPECT_EQ(printed_by([] {
              print_line(std::numeric_limits<std::int64_t>::min(), " ",
                         std::numeric_limits<std::uint64_t>::max());
            }),
            "-9223372036854775808 18446744073709551615\n");
}

TEST(CollectedMessages, GoToTheLastCollectorThatLives) {
  EXPECT_EQ(printed_by([] {
              {
                collected_messages outer;
                print_text("1");
                {
                  const collected_messages inner(false);
                  print_text("2");
                }
                print_text("3");
                EXPECT_EQ(outer.text, "13");
              }
              print_text("4");
            }),
            "4");
}

}  // namespace
}  // namespace morvane
