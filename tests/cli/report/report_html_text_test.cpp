// Texts, numbers and sizes as a page shows them.
#include <gtest/gtest.h>

#include "cli/output/printable_text.h"
#include "cli/report/html/html_text.h"

namespace morvane::cli {
namespace {

TEST(HtmlText, TurnsMarkupIntoText) {
  EXPECT_EQ(html(R"(<b a="1" c='2'>&amp;]]></b>)"),
            "&lt;b a=&quot;1&quot; c=&#39;2&#39;&gt;&amp;amp;]]&gt;&lt;/b&gt;");
}

TEST(HtmlText, ShortensALongNameInItsMiddle) {
  EXPECT_EQ(short_html("net_split_0", 11), "net_split_0");
  EXPECT_EQ(short_html("network_split_0", 9), "netw\xE2\x80\xA6it_0");
  EXPECT_EQ(short_html("\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F\xC3\xA9", 3),
            "\xC3\xA4\xE2\x80\xA6\xC3\xA9");
  EXPECT_EQ(short_html("<<<<<<", 3), "&lt;\xE2\x80\xA6&lt;");
}

TEST(HtmlText, NeverCutsAnEscapeOfAShortName) {
  EXPECT_EQ(short_html("net\x1B\x1B_split_0", 9), "net\xE2\x80\xA6it_0");
  EXPECT_EQ(short_html("\x1B\x1B\x1B\x1B", 9), "\\x1b\xE2\x80\xA6\\x1b");
}

TEST(HtmlText, ShortensATextThatNeedsMoreThan2048Bytes) {
  const std::string beginning(169, 'n');
  const std::string ending(170, 'n');
  EXPECT_EQ(html(std::string(2048, 'n')).size(), 2048U);
  EXPECT_EQ(html(std::string(2049, 'n')), beginning + "\xE2\x80\xA6" + ending);
  EXPECT_EQ(html(std::string(341, '"')).size(), 2046U);
  EXPECT_EQ(html(std::string(342, '"')).size(), 2037U);
}

TEST(HtmlText, WritesNumbers) {
  EXPECT_EQ(hexadecimal(0), "0x0");
  EXPECT_EQ(hexadecimal(0x90000000), "0x90000000");
  EXPECT_EQ(grouped(0), "0");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1000), "1,000");
  EXPECT_EQ(grouped(18446744073709551615U), "18,446,744,073,709,551,615");
  EXPECT_EQ(counted(1, "port"), "1 port");
  EXPECT_EQ(counted(2000, "port"), "2,000 ports");
}

TEST(HtmlText, WritesSizesInBytesAndKib) {
  EXPECT_EQ(byte_size(1), "1 byte");
  EXPECT_EQ(byte_size(1023), "1,023 bytes");
  EXPECT_EQ(byte_size(1024), "1,024 bytes (1.0 KiB)");
  EXPECT_EQ(byte_size(2047), "2,047 bytes (2.0 KiB)");
  EXPECT_EQ(byte_size(4294967295), "4,294,967,295 bytes (4,194,304.0 KiB)");
  EXPECT_EQ(rounded_size(1023), "1023 B");
  EXPECT_EQ(rounded_size(1536), "1.5 KiB");
  EXPECT_EQ(rounded_size(1048575), "1,024.0 KiB");
  EXPECT_EQ(rounded_size(std::uint64_t{3} << 40U), "3.0 TiB");
}

TEST(HtmlText, WritesPercentages) {
  EXPECT_EQ(percent(0), "0%");
  EXPECT_EQ(percent(5), "0.05%");
  EXPECT_EQ(percent(1234), "12.34%");
  EXPECT_EQ(percent(10000), "100%");
}

}  // namespace
}  // namespace morvane::cli
