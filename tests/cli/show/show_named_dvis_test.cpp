// morvane show with the names of DVIs.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

std::string package_without_ports(const std::vector<std::string>& dag_names) {
  std::string package = header(static_cast<std::uint32_t>(dag_names.size()));
  for (const std::string& name : dag_names) {
    package += bytes(dvi(name, 0, 0, 0));
  }
  return package;
}

TEST(ShowNamedDvis, ShowsOnlyTheseInTheOrderOfThePackage) {
  const scratch_folder folder;
  folder.write("net.bin", package_without_ports({"a", "b", "c", "b"}));
  expect_outcome(
      run_morvane({"show", "net.bin", "c", "b"}, folder.path()), 0,
      "net.bin: 636 bytes, version 2.1.6 ( HASH b3b3814 ), dvi_num 4, without vproc records\n"
      "\n"
      "DVI 1: b\n"
      "  dvi_id 0, vproc_id 0, dvi_ppv 0\n"
      "  image: offset 0x27c, 0 bytes, address 0x1000, DAG binary at 0x2000\n"
      "\n"
      "DVI 2: c\n"
      "  dvi_id 0, vproc_id 0, dvi_ppv 0\n"
      "  image: offset 0x27c, 0 bytes, address 0x1000, DAG binary at 0x2000\n"
      "\n"
      "DVI 3: b\n"
      "  dvi_id 0, vproc_id 0, dvi_ppv 0\n"
      "  image: offset 0x27c, 0 bytes, address 0x1000, DAG binary at 0x2000\n");
}

TEST(ShowNamedDvis, WritesOnlyTheseAsJson) {
  const scratch_folder folder;
  folder.write("net.bin", package_without_ports({"a", "b"}));
  const run_result run = run_morvane({"show", "--json", "net.bin", "b"}, folder.path());
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.output.find(R"("dvi_num": 2)"), std::string::npos) << run.output;
  EXPECT_EQ(run.output.find(R"("dag_name": "a")"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find(R"("dag_name": "b")"), std::string::npos) << run.output;
}

TEST(ShowNamedDvis, TellsOfANameThatNoDviHas) {
  const scratch_folder folder;
  folder.write("net.bin", package_without_ports({"a"}));
  const run_result run = run_morvane({"show", "net.bin", "z\n", "a"}, folder.path());
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.output.find("\nDVI 0: a\n"), std::string::npos) << run.output;
  EXPECT_EQ(run.diagnostics, "morvane: net.bin: no DVI has the name \"z\\x0a\"\n");
}

}  // namespace
}  // namespace morvane::test
