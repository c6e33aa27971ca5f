#include "headers/length_check.h"

#include <gtest/gtest.h>

#include "printed_text.h"

namespace morvane {
namespace {

using test::printed_by;

TEST(ReportLengthLimit, NamesTheLimitTheTextAndItsLength) {
  EXPECT_EQ(printed_by([] { EXPECT_EQ(report_length_limit("net", "VAR_NAME"), -1); }),
            "error: please increase length limit of MACRO [VAR_NAME] for string \"net\" "
            "with length [3]\n");
}

TEST(ReportLengthLimit, ShowsAnOverLongLineWhole) {
  const std::string line(1200, 'y');
  EXPECT_EQ(printed_by([&] { report_length_limit(line, "LINE_LEN"); }),
            "error: please increase length limit of MACRO [LINE_LEN] for string \"" + line +
                "\" with length [1200]\n");
}

TEST(ReportLengthLimit, ShowsEveryByteOfTheText) {
  EXPECT_EQ(printed_by([] {
              report_length_limit({"a\0\xFF\r", 4}, "LINE_LEN");
            }),
            std::string("error: please increase length limit of MACRO [LINE_LEN] for string \"") +
                std::string("a\0\xFF\r", 4) + "\" with length [4]\n");
}

TEST(CheckLengthLimit, AcceptsTheLongestTextInSilence) {
  EXPECT_EQ(printed_by([] {
              EXPECT_EQ(check_length_limit("", var_name_limit), 0);
              EXPECT_EQ(check_length_limit(std::string(127, 'n'), var_name_limit), 0);
            }),
            "");
}

TEST(CheckLengthLimit, ReportsOneCharacterMore) {
  const std::string text(128, 'n');
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(check_length_limit(text, var_name_limit), -1); }),
            "error: please increase length limit of MACRO [VAR_NAME] for string \"" + text +
                "\" with length [128]\n");
}

TEST(LengthLimits, AreTheseUnderTheseNames) {
  struct row {
    length_limit limit;
    std::string_view name;
    std::size_t longest;
  };
  const row rows[] = {
      {line_limit, "LINE_LEN", 1023},
      {file_name_limit, "FILENAME", 127},
      {var_name_limit, "VAR_NAME", 127},
      {io_name_limit, "IO_NAME", 511},
      {layer_name_limit, "IO_DEMNGL_NAME", 511},
  };
  for (const row& expected : rows) {
    EXPECT_EQ(expected.limit.name, expected.name);
    EXPECT_EQ(expected.limit.longest, expected.longest) << expected.name;
  }
  EXPECT_EQ(longest_setting, 2048U);
}

}  // namespace
}  // namespace morvane
