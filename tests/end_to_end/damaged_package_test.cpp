// Packages that end early, or claim more than they hold.
#include <gtest/gtest.h>

#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

const std::vector<std::string> inspect_damaged = {"-f", "net.bin", "-v", "-c"};

constexpr int killed_by_abort = 128 + 6;

constexpr const char* first_line = "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n\n";
constexpr const char* damaged_folder_line = ".dvi files are parsed to folder .//parse\n\n";

struct table_fields {
  std::string size = "0";
  std::string inputs = "0";
  std::string outputs = "0";
  std::string name = "net";
};

std::string table_line(const table_fields& fields) {
  return "dvi_id: 0\t dvi_img_vaddr: 0\t dvi_img_size: " + fields.size +
         "\t dvi_dag_vaddr: 0\t input_num: " + fields.inputs + "\t output_num: " + fields.outputs +
         "\t dvi_pkg_size: 0\t dvi_ppv: 0\t vproc_id: 0\t dag_name: " + fields.name + "\n";
}

std::string heading(const table_fields& fields) {
  return "dvi_id: 0 dag_name: " + fields.name + " input_num: " + fields.inputs +
         " output_num: " + fields.outputs + "\n";
}

/// The line of a port whose bytes are zero, except its names.
std::string zero_port_line(const std::string& id, const std::string& names) {
  return id +
         "\t port_size: 0\t port_byte_offset: 0\t bitvector: 0\t dim: (P, D, H, W) = ( 0, 0, 0, "
         "0)\tpitch: 0\tdram_format: 0\tdata_format: (0, 0, 0, 0)\tport rotate bit (p, d, v, h, "
         "r): (0, 0, 0, 0, 0)\tport rotate offset(p, d, v, h, r): (0, 0, 0, 0, 0)\tport_name: " +
         names + "\n";
}

run_result inspected(const scratch_folder& folder, const std::string& package) {
  folder.write("net.bin", package);
  return run_tool(inspect_damaged, folder.path());
}

TEST(CutPackage, WithoutAWholeHeaderReadsAsZeros) {
  for (const std::size_t length : {0U, 1U, 4U, 8U, 11U}) {
    SCOPED_TRACE(length);
    const scratch_folder folder;
    expect_run(inspected(folder, package_header(1).substr(0, length)), 1,
               std::string("version 0.0.0 ( HASH 0000000 ) dvi_num: 0\n"
                           "\n"
                           "\n"
                           "error: fail to parse file net.bin\n") +
                   damaged_folder_line);
    EXPECT_TRUE(folder.exists("parse"));
    expect_files(folder.files("parse"), {});
  }
}

TEST(CutPackage, WithoutATableHasDvisOfZeros) {
  const scratch_folder folder;
  const table_fields dvi = {.name = ""};
  expect_run(inspected(folder, package_header(2)), 1,
             "version 2.1.6 ( HASH b3b3814 ) dvi_num: 2\n\n" + table_line(dvi) + table_line(dvi) +
                 "\n" + heading(dvi) + "\n" + heading(dvi) + "\n" + damaged_folder_line);
  expect_files(folder.files("parse"), {{".dvi", ""},
                                       {"_.h",
                                        "#define\t_DAG_NAME\t\"\"\n"
                                        "#define\t_use_ping_pong_vmem\t0\n"
                                        "#define\t_image_start\t0\n"
                                        "#define\t_image_size\t0\n"
                                        "#define\t_dagbin_start\t0\n"
                                        "#define\t_DAG_NAME\t\"\"\n"
                                        "#define\t_use_ping_pong_vmem\t0\n"
                                        "#define\t_image_start\t0\n"
                                        "#define\t_image_size\t0\n"
                                        "#define\t_dagbin_start\t0\n"}});
}

TEST(CutPackage, KeepsWhatCameOfACutDvi) {
  const scratch_folder folder;
  // The DVI's record ends after two letters of its name, and after the low half of its image size.
  expect_run(inspected(folder, package_header(1) + dvi_record({.dag_name = "net"}).substr(0, 30)),
             1,
             first_line + table_line({.name = "ne"}) + "\n" + heading({.name = "ne"}) + "\n" +
                 damaged_folder_line);
  const table_fields half = {.size = "4096", .name = ""};
  expect_run(
      inspected(folder, package_header(1) + dvi_record({.img_size = 0x11001000}).substr(0, 10)), 1,
      first_line + table_line(half) + "\n" + heading(half) + "\n" + damaged_folder_line);
}

TEST(CutPackage, KeepsWhatCameOfACutPort) {
  const scratch_folder folder;
  const table_fields dvi = {.inputs = "2", .outputs = "1"};
  const std::string port =
      port_record({.port_name = "data", .sign = 0, .datasize = 0, .expoffset = 0, .expbits = 0});
  expect_run(
      inspected(folder, package_header(1) +
                            dvi_record({.input_num = 2, .output_num = 1, .dag_name = "net"}) +
                            port + port.substr(0, 58)),
      1,
      first_line + table_line(dvi) + "\n" + heading(dvi) + zero_port_line("input_id: 0", "data\t") +
          zero_port_line("input_id: 1", "da\t") + zero_port_line("output_id: 0", "\t") + "\n" +
          damaged_folder_line);
}

TEST(CutPackage, WritesWhatCameOfACutImage) {
  const scratch_folder folder;
  const table_fields dvi = {.size = "1000"};
  expect_run(inspected(folder, package_header(1) +
                                   dvi_record({.img_size = 1000, .dag_name = "net"}) + "image"),
             1, first_line + table_line(dvi) + "\n" + heading(dvi) + "\n" + damaged_folder_line);
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
}

TEST(CutPackage, FewerThanFourBytesAreNoVprocSection) {
  const std::string package = package_header(1) + dvi_record({.dag_name = "net"});
  for (const std::size_t length : {0U, 1U, 2U, 3U}) {
    SCOPED_TRACE(length);
    const scratch_folder folder;
    expect_run(inspected(folder, package + vproc_record(1, 1, 0).substr(0, length)), 1,
               first_line + table_line({}) + "\n" + heading({}) + "\n" + damaged_folder_line);
  }
}

TEST(CutPackage, FourBytesAreAVprocSectionWithAVariableOfZeros) {
  const scratch_folder folder;
  expect_run(inspected(folder, package_header(1) + dvi_record({.dag_name = "net"}) +
                                   vproc_record(1, 1, 0).substr(0, 4)),
             1,
             first_line + table_line({}) + "\n" + heading({}) +
                 "\n"
                 "vproc_id: 0 dag_name: net variable_num: 1 smb_num: 0\n"
                 "\n"
                 "var: \t boffset = 0\t bsize = 0\n"
                 "\n"
                 "\n" +
                 damaged_folder_line);
}

TEST(CutPackage, KeepsWhatCameOfACutVariableAndOfACutSmb) {
  const std::string package = package_header(1) + dvi_record({.dag_name = "net"});
  const scratch_folder folder;
  expect_run(inspected(folder, package + vproc_record(2, 1, 0) + variable_record("gain", 1, 2) +
                                   variable_record("bias", 3, 4).substr(0, 133)),
             1,
             first_line + table_line({}) + "\n" + heading({}) +
                 "\n"
                 "vproc_id: 0 dag_name: net variable_num: 2 smb_num: 1\n"
                 "\n"
                 "var: gain\t boffset = 1\t bsize = 2\n"
                 "var: bias\t boffset = 3\t bsize = 4\n"
                 "\n"
                 "smb_id: 0\t vbase_byte_offset: 0\t smb_name: \n"
                 "\n" +
                 damaged_folder_line);
  expect_run(inspected(folder, package + vproc_record(0, 1, 0) + smb_record("lut", 5).substr(0, 2)),
             1,
             first_line + table_line({}) + "\n" + heading({}) +
                 "\n"
                 "vproc_id: 0 dag_name: net variable_num: 0 smb_num: 1\n"
                 "\n"
                 "\n"
                 "smb_id: 0\t vbase_byte_offset: 0\t smb_name: lu\n"
                 "\n" +
                 damaged_folder_line);
}

TEST(CutPackage, OfAFailedPackRunIsInspectedAsFarAsItGoes) {
  const scratch_folder folder;
  const table_fields dvi = {.size = "5"};
  expect_run(inspected(folder, package_header(1) + dvi_record({.img_size = 5, .dag_name = "net"})),
             1, first_line + table_line(dvi) + "\n" + heading(dvi) + "\n" + damaged_folder_line);
  EXPECT_EQ(folder.read("parse/net.dvi"), "");
}

TEST(ClaimedImage, OfTwoGigabytesTakesNoMemory) {
  const scratch_folder folder;
  const table_fields dvi = {.size = "2147483647"};
  const run_result run = inspected(
      folder, package_header(1) + dvi_record({.img_size = 2147483647, .dag_name = "net"}));
  expect_run(run, 1,
             first_line + table_line(dvi) + "\n" + heading(dvi) + "\n" + damaged_folder_line);
  EXPECT_LT(run.peak_kib, 512 * 1024);
}

TEST(NegativeCount, OfDvisEndsTheProgramAfterTheFirstLine) {
  const scratch_folder folder;
  expect_run(inspected(folder, package_header(0x80000000)), killed_by_abort,
             "version 2.1.6 ( HASH b3b3814 ) dvi_num: 2147483648\n");
  expect_run(inspected(folder, package_header(0xFFFFFFFF) + dvi_record({})), killed_by_abort,
             "version 2.1.6 ( HASH b3b3814 ) dvi_num: 4294967295\n");
  expect_files(folder.files("parse"), {});
}

TEST(NegativeCount, OfPortsEndsTheProgramBeforeTheDvisHeading) {
  for (const bool of_outputs : {false, true}) {
    SCOPED_TRACE(of_outputs);
    const scratch_folder folder;
    const dvi_fields fields = {.input_num = of_outputs ? 1 : 0xFFFFFFFF,
                               .output_num = of_outputs ? 0x80000000 : 1,
                               .dag_name = "net"};
    const table_fields dvi = {.inputs = of_outputs ? "1" : "4294967295",
                              .outputs = of_outputs ? "2147483648" : "1"};
    expect_run(inspected(folder, package_header(1) + dvi_record(fields) + port_record({})),
               killed_by_abort, first_line + table_line(dvi) + "\n");
  }
}

TEST(NegativeCount, OfImageBytesEndsTheProgramBeforeTheImageIsMade) {
  const scratch_folder folder;
  const table_fields dvi = {.size = "4294967295"};
  expect_run(inspected(folder, package_header(1) +
                                   dvi_record({.img_size = 0xFFFFFFFF, .dag_name = "net"}) + "i"),
             killed_by_abort, first_line + table_line(dvi) + "\n" + heading(dvi) + "\n");
  EXPECT_FALSE(folder.exists("parse/net.dvi"));
  EXPECT_TRUE(folder.exists("parse/_net.h"));
}

TEST(NegativeCount, OfVariablesOrSmbsEndsTheProgramBeforeTheirHeading) {
  for (const std::string& vproc :
       {vproc_record(0x80000000, 0, 0), vproc_record(1, 0xFFFFFFFF, 0)}) {
    const scratch_folder folder;
    expect_run(inspected(folder, package_header(1) + dvi_record({.dag_name = "net"}) + vproc +
                                     variable_record("x", 0, 0)),
               killed_by_abort, first_line + table_line({}) + "\n" + heading({}) + "\n");
  }
}

}  // namespace
}  // namespace morvane::test
