// morvane show --csv: the ports of a package for pipes.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

constexpr const char* csv_head =
    "dvi,dag_name,port,index,offset,P,D,H,W,pitch,dram_format,flags,reserved,drotate_bit_offset,"
    "hflip_bit_offset,vflip_bit_offset,dflip_bit_offset,pflip_bit_offset,sign,datasize,expoffset,"
    "expbits,port_size,port_byte_offset,port_name,layer_name\n";

TEST(ShowCsv, WritesARowForEachPort) {
  const port_desc input = varied_port("data", "net/in");
  const scratch_folder folder;
  folder.write("net.bin", header(2) + bytes(dvi("none", 0, 0, 0)) + bytes(dvi("net", 0, 1, 1)) +
                              bytes(input) + bytes(port("out", "")));
  expect_outcome(run_morvane({"show", "--csv", "net.bin"}, folder.path()), 0,
                 std::string(csv_head) +
                     "1,net,input,0,324,1,2,3,4,5,6,4,0 0,8,9,10,11,12,1,16,-15,5,4294967295,13,"
                     "data,net/in\n"
                     "1,net,output,0,1404,0,0,0,16,0,0,4,0 0,0,0,0,0,0,0,0,-3,0,0,0,out,\n");
}

TEST(ShowCsv, QuotesANameOnlyWhereItMust) {
  const scratch_folder folder;
  folder.write("net.bin", header(1) + bytes(dvi("a b", 0, 1, 0)) + bytes(port("\"x\",", "\"\n")));
  const run_result run = run_morvane({"show", "--csv", "net.bin"}, folder.path());
  EXPECT_NE(run.output.find("\n0,a b,input,0,168,"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find(",\"\"\"x\"\",\",\"\"\"\\x0a\"\n"), std::string::npos) << run.output;
}

TEST(ShowCsv, WritesOnlyThePortsOfTheDvisThatAreNamed) {
  const scratch_folder folder;
  folder.write("net.bin", sound_package());
  const run_result run = run_morvane({"show", "--csv", "net.bin", "second"}, folder.path());
  EXPECT_EQ(run.output.find("\n0,first,"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find("\n1,second,input,0,"), std::string::npos) << run.output;
}

TEST(ShowCsv, IsNoJsonAndHasNoDigests) {
  expect_outcome(run_morvane({"show", "--csv", "--json", "net.bin"}, "."), 2, "",
                 "morvane: --json and --csv exclude each other; try morvane show --help\n");
  expect_outcome(run_morvane({"show", "--csv", "--digest", "net.bin"}, "."), 2, "",
                 "morvane: --csv and --digest exclude each other; try morvane show --help\n");
}

}  // namespace
}  // namespace morvane::test
