// morvane diff of a package and the folder that it is made from.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "cli/pack/packed_folder.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

constexpr const char* header_with_variable =
    "#define net_DAG_NAME \"net\"\n"
    "#define net_image_start 4096\n"
    "#define net_image_size 4\n"
    "#define net_dagbin_start 4096\n"
    "\n"
    "/* $gain */\n"
    "#define gain_boffset 0\n"
    "#define gain_bsize 8\n";

/// A folder "out", and its packages with vproc records and without.
struct folder_and_packages {
  scratch_folder folder{};

  folder_and_packages() {
    folder.write("out/net.dvi", "AAAA");
    folder.write("out/_net.h", header_with_variable);
    EXPECT_TRUE(pack_folder(folder.path("out"), false, folder.path("plain.bin")));
    EXPECT_TRUE(pack_folder(folder.path("out"), true, folder.path("vproc.bin")));
  }
};

TEST(DiffFolder, IsSilentWhenThePackageIsMadeFromIt) {
  const folder_and_packages made;
  for (const char* package : {"plain.bin", "vproc.bin", "out"}) {
    expect_outcome(run_morvane({"diff", "out", package}, made.folder.path()), 0, "");
    expect_outcome(run_morvane({"diff", package, "out/"}, made.folder.path()), 0, "");
  }
}

TEST(DiffFolder, TellsWhatDiffers) {
  const folder_and_packages made;
  made.folder.write("out/net.dvi", "AABA");
  expect_outcome(run_morvane({"diff", "plain.bin", "out"}, made.folder.path()), 1,
                 "DVI \"net\": image: 4 bytes, 1 differs, the first at 0x2\n");
  expect_outcome(
      run_morvane({"diff", "--json", "out", "plain.bin"}, made.folder.path()), 1,
      "{\"same\": false, \"old\": {\"file\": \"out\", \"size\": 172, \"damaged\": false}, \"new\": "
      "{\"file\": \"plain.bin\", \"size\": 172, \"damaged\": false}, \"differences\": [\n"
      "  {\"part\": \"image\", \"dag_name\": \"net\", \"dag_occurrence\": 1, \"change\": "
      "\"bytes\", "
      "\"old_size\": 4, \"new_size\": 4, \"first_offset\": 2, \"differing_bytes\": 1}]}\n");
}

TEST(DiffFolder, OfTwoFoldersComparesTheVariablesToo) {
  const folder_and_packages made;
  made.folder.write("new/net.dvi", "AAAA");
  std::string other = header_with_variable;
  other.replace(other.rfind('8'), 1, "9");
  made.folder.write("new/_net.h", other);
  expect_outcome(run_morvane({"diff", "out", "new"}, made.folder.path()), 1,
                 "DVI \"net\": variable \"gain\": bsize: 8 -> 9\n");
}

TEST(DiffFolder, EndsWithTwoWhenTheFolderCannotBePacked) {
  const folder_and_packages made;
  made.folder.make_folder("empty");
  const std::string finding =
      "empty:1:1: error: no file with the extension .dvi can be packed [no-images]\n"
      "morvane: empty: 1 error, 0 warnings: nothing is packed\n";
  for (const char* option : {"--json", "--quiet"}) {
    expect_outcome(run_morvane({"diff", option, "empty", "plain.bin"}, made.folder.path()), 2, "",
                   finding);
    expect_outcome(run_morvane({"diff", option, "plain.bin", "empty"}, made.folder.path()), 2, "",
                   finding);
  }
}

TEST(DiffFolder, IsNotPackedWhenThePackageCannotBeRead) {
  const folder_and_packages made;
  expect_outcome(run_morvane({"diff", "out", "none.bin"}, made.folder.path()), 2, "",
                 "morvane: none.bin: No such file or directory\n");
}

TEST(DiffFolder, TellsNoWarnings) {
  const folder_and_packages made;
  std::string quoted = header_with_variable;
  quoted.replace(quoted.find("size 4"), 6, "size \"4\"");
  made.folder.write("out/_net.h", quoted);
  expect_outcome(run_morvane({"diff", "out", "plain.bin"}, made.folder.path()), 0, "");
}

}  // namespace
}  // namespace morvane::test
