#include "io/message.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "printed_text.h"

namespace morvane {
namespace {

using test::printed_by;

TEST(PrintLine, JoinsTextsAndNumbersIntoOneLine) {
  EXPECT_EQ(printed_by([] { print_line("size ", 12, ", id ", 7U, "."); }), "size 12, id 7.\n");
}

TEST(PrintLine, WithoutPiecesIsAnEmptyLine) {
  EXPECT_EQ(printed_by([] { print_line(); }), "\n");
}

TEST(PrintLine, ShowsBytesAsNumbers) {
  EXPECT_EQ(printed_by(
                [] { print_line(std::uint8_t{65}, " ", std::uint8_t{255}, " ", std::int8_t{-3}); }),
            "65 255 -3\n");
}

TEST(PrintLine, ShowsTheLongestNumbers) {
  EXPECT_EQ(printed_by([] {
              print_line(std::numeric_limits<std::int64_t>::min(), " ",
                         std::numeric_limits<std::uint64_t>::max());
            }),
            "-9223372036854775808 18446744073709551615\n");
}

TEST(PrintLine, KeepsNulAndHighBytes) {
  EXPECT_EQ(printed_by([] { print_line(std::string_view("a\0b\xFF", 4)); }),
            std::string("a\0b\xFF\n", 5));
}

TEST(PrintText, AddsNothing) {
  EXPECT_EQ(printed_by([] { print_text("two\nlines"); }), "two\nlines");
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

TEST(ReportOpenFailure, NamesThePath) {
  EXPECT_EQ(printed_by([] { EXPECT_EQ(report_open_failure("out/net.dvi"), -1); }),
            "can't open file out/net.dvi\n");
}

}  // namespace
}  // namespace morvane
