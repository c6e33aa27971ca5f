#include "inspect/header_writer.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"

namespace morvane {
namespace {

// An inspection that goes on replaces the headers in any case.
TEST(RemoveHeaders, DeletesThoseOfThePackageAndOfDvisThatItLacks) {
  const test::scratch_folder folder;
  for (const char* name : {"_a.h", "_.h", "_c.h"}) {
    folder.write(name, "old");
  }
  const parse_folder output{.path = "parse", .handle = open_folder(folder.path())};
  claimed_list<dvi_desc> dvis{.count = 1, .present = {dvi_desc{}}};
  dvis.present[0].dag_name[0] = 'a';
  remove_headers(output, dvis);
  EXPECT_EQ(folder.files(), (std::map<std::string, std::string>{{"_.h", "old"}, {"_c.h", "old"}}));
  dvis.count = 1000000;
  remove_headers(output, dvis);
  EXPECT_EQ(folder.files(), (std::map<std::string, std::string>{{"_c.h", "old"}}));
}

}  // namespace
}  // namespace morvane
