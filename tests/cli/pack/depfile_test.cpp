#include "cli/pack/depfile.h"

#include <gtest/gtest.h>

namespace morvane::cli {
namespace {

TEST(Depfile, NamesThePackageAndItsInputs) {
  EXPECT_EQ(depfile_text("net.bin", {"in/a.dvi", "in/a.h"}),
            "net.bin: \\\n"
            "  in/a.dvi \\\n"
            "  in/a.h\n");
}

TEST(Depfile, EscapesBlanksHashesAndDollars) {
  EXPECT_EQ(depfile_text("a b", {"c#d", "e$f"}),
            "a\\ b: \\\n"
            "  c\\#d \\\n"
            "  e$$f\n");
}

TEST(Depfile, DoublesBackslashesBeforeABlankOnly) {
  EXPECT_EQ(depfile_text("n", {"a\\b", "c\\ d"}),
            "n: \\\n"
            "  a\\b \\\n"
            "  c\\\\\\ d\n");
}

TEST(Depfile, IsEmptyForAPathWithALineBreak) {
  EXPECT_EQ(depfile_text("a\nb", {}), "");
  EXPECT_EQ(depfile_text("n", {"a\rb"}), "");
}

}  // namespace
}  // namespace morvane::cli
