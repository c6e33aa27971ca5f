// Packages that end early, or claim more than they hold.
#include "end_to_end/inspection_output.h"
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

const std::vector<std::string> inspect_damaged = {"-f", "net.bin", "-v", "-c"};

constexpr int killed_by_abort = 128 + 6;

const dvi_fields plain_net = {.dag_name = "net"};

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

using CutPackage = tool_test;

TEST_F(CutPackage, WithoutAWholeHeaderReadsAsZeros) {
  for (const std::size_t length : {0U, 1U, 4U, 8U, 11U}) {
    SCOPED_TRACE(length);
    const scratch_folder other;
    expect_run(inspected(other, package_header(1).substr(0, length)), 1,
               std::string("version 0.0.0 ( HASH 0000000 ) dvi_num: 0\n"
                           "\n"
                           "\n"
                           "error: fail to parse file net.bin\n") +
                   report_end());
    EXPECT_TRUE(other.exists("parse"));
    expect_files(other.files("parse"), {});
  }
}

TEST_F(CutPackage, WithoutATableHasDvisOfZeros) {
  folder.write("parse/_.h", "of an earlier run");
  expect_run(inspected(folder, package_header(2)), 1, report_begin({{}, {}}) + report_end());
  expect_files(folder.files("parse"), {{".dvi", ""}, {"_.h", dag_block({}) + dag_block({})}});
}

TEST_F(CutPackage, KeepsWhatCameOfACutDvi) {
  // The DVI's record ends after two letters of its name, and after the low half of its image size.
  expect_run(inspected(folder, package_header(1) + dvi_record(plain_net).substr(0, 30)), 1,
             report_begin({{.dag_name = "ne"}}) + report_end());
  expect_run(
      inspected(folder, package_header(1) + dvi_record({.img_size = 0x11001000}).substr(0, 10)), 1,
      report_begin({{.img_size = 4096}}) + report_end());
}

TEST_F(CutPackage, KeepsWhatCameOfACutPort) {
  const dvi_fields dvi = {.input_num = 2, .output_num = 1, .dag_name = "net"};
  const std::string port =
      port_record({.port_name = "data", .sign = 0, .datasize = 0, .expoffset = 0, .expbits = 0});
  expect_run(inspected(folder, package_header(1) + dvi_record(dvi) + port + port.substr(0, 58)), 1,
             first_line(1) + "\n" + table_line(dvi) + "\n" + heading(dvi) +
                 zero_port_line("input_id: 0", "data\t") + zero_port_line("input_id: 1", "da\t") +
                 zero_port_line("output_id: 0", "\t") + "\n" + report_end());
}

TEST_F(CutPackage, WritesWhatCameOfACutImage) {
  const dvi_fields dvi = {.img_size = 2147483647, .dag_name = "net"};
  for (const std::string image : {"", "image"}) {
    const scratch_folder other;
    expect_run(inspected(other, package_header(1) + dvi_record(dvi) + image), 1,
               report_begin({dvi}) + report_end());
    EXPECT_EQ(other.read("parse/net.dvi"), image);
  }
}

TEST_F(CutPackage, FewerThanFourBytesAreNoVprocSection) {
  const std::string package = package_header(1) + dvi_record(plain_net);
  for (const std::size_t length : {0U, 1U, 2U, 3U}) {
    SCOPED_TRACE(length);
    const scratch_folder other;
    expect_run(inspected(other, package + vproc_record(1, 1, 0).substr(0, length)), 1,
               report_begin({plain_net}) + report_end());
  }
}

TEST_F(CutPackage, FourBytesAreAVprocSectionWithAVariableOfZeros) {
  expect_run(inspected(folder, package_header(1) + dvi_record(plain_net) +
                                   vproc_record(1, 1, 0).substr(0, 4)),
             1,
             report_begin({plain_net}) +
                 "vproc_id: 0 dag_name: net variable_num: 1 smb_num: 0\n"
                 "\n"
                 "var: \t boffset = 0\t bsize = 0\n"
                 "\n"
                 "\n" +
                 report_end());
}

TEST_F(CutPackage, KeepsWhatCameOfACutVariableAndOfACutSmb) {
  const std::string package = package_header(1) + dvi_record(plain_net);
  expect_run(inspected(folder, package + vproc_record(2, 1, 0) + variable_record("gain", 1, 2) +
                                   variable_record("bias", 3, 4).substr(0, 133)),
             1,
             report_begin({plain_net}) +
                 "vproc_id: 0 dag_name: net variable_num: 2 smb_num: 1\n"
                 "\n"
                 "var: gain\t boffset = 1\t bsize = 2\n"
                 "var: bias\t boffset = 3\t bsize = 4\n"
                 "\n"
                 "smb_id: 0\t vbase_byte_offset: 0\t smb_name: \n"
                 "\n" +
                 report_end());
  expect_run(inspected(folder, package + vproc_record(0, 1, 0) + smb_record("lut", 5).substr(0, 2)),
             1,
             report_begin({plain_net}) +
                 "vproc_id: 0 dag_name: net variable_num: 0 smb_num: 1\n"
                 "\n"
                 "\n"
                 "smb_id: 0\t vbase_byte_offset: 0\t smb_name: lu\n"
                 "\n" +
                 report_end());
}

TEST_F(CutPackage, OfManySmbsHasSmbsOfZerosAfterThem) {
  std::string package = package_header(1) + dvi_record(plain_net) + vproc_record(0, 20000, 0);
  std::string report;
  std::string blocks;
  for (unsigned i = 0; i < 20000; ++i) {
    const std::string name = i < 5000 ? "s" : "";
    const std::string offset = std::to_string(i < 5000 ? i : 0);
    package += i < 5000 ? smb_record("s", i) : "";
    report += "smb_id: " + std::to_string(i) + "\t vbase_byte_offset: " + offset +
              "\t smb_name: " + name + "\n";
    blocks += "\n/* net SMB_input " + name + " */\n#define\tnet_" + name + "_vbase_byte_offset\t" +
              offset + "\n";
  }
  const std::string before =
      report_begin({plain_net}) + "vproc_id: 0 dag_name: net variable_num: 0 smb_num: 20000\n\n\n";
  expect_run(inspected(folder, package), 1, before + report + "\n" + report_end());
  const std::string header = folder.read("parse/_net.h");
  EXPECT_EQ(header.substr(header.find("\n\n") + 1), blocks);

  // Where there is no folder, all of them together are reported once.
  const std::string lost = "can't open file missing/parse/_net.h\n";
  const run_result run = tool({"-f", "net.bin", "-v", "-c", "-p", "missing"});
  EXPECT_TRUE(run.output.ends_with(report + lost + "\n" + failed_report_end("missing")));
}

using NegativeCount = tool_test;

TEST_F(NegativeCount, OfDvisEndsTheProgramAfterTheFirstLine) {
  expect_run(inspected(folder, package_header(0x80000000)), killed_by_abort,
             first_line(2147483648));
  expect_run(inspected(folder, package_header(0xFFFFFFFF) + dvi_record({})), killed_by_abort,
             first_line(4294967295));
  expect_files(folder.files("parse"), {});
}

TEST_F(NegativeCount, OfPortsEndsTheProgramBeforeTheDvisHeading) {
  const dvi_fields of_inputs = {.input_num = 0xFFFFFFFF, .output_num = 1, .dag_name = "net"};
  const dvi_fields of_outputs = {.input_num = 1, .output_num = 0x80000000, .dag_name = "net"};
  for (const dvi_fields& dvi : {of_inputs, of_outputs}) {
    const scratch_folder other;
    expect_run(inspected(other, package_header(1) + dvi_record(dvi) + port_record({})),
               killed_by_abort, first_line(1) + "\n" + table_line(dvi) + "\n");
  }
}

TEST_F(NegativeCount, OfImageBytesEndsTheProgramBeforeTheImageIsMade) {
  const dvi_fields dvi = {.img_size = 0xFFFFFFFF, .dag_name = "net"};
  expect_run(inspected(folder, package_header(1) + dvi_record(dvi) + "i"), killed_by_abort,
             report_begin({dvi}));
  EXPECT_FALSE(folder.exists("parse/net.dvi"));
  EXPECT_TRUE(folder.exists("parse/_net.h"));
}

TEST_F(NegativeCount, OrAnAbsurdOneOfVariablesOrSmbsEndsTheProgramBeforeTheirHeading) {
  for (const std::string& vproc : {vproc_record(0x80000000, 0, 0), vproc_record(1, 0xFFFFFFFF, 0),
                                   vproc_record(1, 32537632, 0)}) {
    const scratch_folder other;
    expect_run(inspected(other, package_header(1) + dvi_record(plain_net) + vproc +
                                    variable_record("x", 0, 0)),
               killed_by_abort, report_begin({plain_net}));
  }
}

}  // namespace
}  // namespace morvane::test
