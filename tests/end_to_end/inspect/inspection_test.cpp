// The report on a package, and what an inspection writes into the parse folder.
#include <sys/stat.h>

#include <filesystem>

#include "end_to_end/inspection_output.h"
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

const std::vector<std::string> inspect = {"-f", "net.bin", "-v", "-p", "."};
const std::vector<std::string> inspect_with_vproc = {"-f", "net.bin", "-v", "-p", ".", "-c"};

using Inspection = tool_test;

TEST_F(Inspection, OfAPackageWithoutDvisReportsNothingAndNoError) {
  folder.write("net.bin", package_header(0) + "what follows is not looked at");
  folder.write("parse/_.h", "kept");
  for (const auto& arguments : {inspect, inspect_with_vproc}) {
    expect_tool(arguments, 1, report_begin({}) + report_end("."));
  }
  expect_files(folder.files("parse"), {{"_.h", "kept"}});
}

TEST_F(Inspection, PrintsAnyVersionAndHash) {
  folder.write("net.bin", word(0xFE038007) + word(0x00000ABC) + word(0));
  expect_tool(inspect, 1,
              "version 254.3.32775 ( HASH 0000abc ) dvi_num: 0\n\n\n" + report_end("."));
  folder.write("net.bin", word(0xFFFFFFFF) + word(0xFFFFFFFF) + word(0));
  expect_tool(inspect, 1,
              "version 255.255.65535 ( HASH ffffffff ) dvi_num: 0\n\n\n" + report_end("."));
}

TEST_F(Inspection, OfADviWithoutPortsHasItsHeadingAndWritesItsImage) {
  folder.write("net.bin", package_header(1) +
                              dvi_record({.dvi_id = 255,
                                          .vproc_id = 254,
                                          .ppv = 253,
                                          .img_vaddr = 4294967295,
                                          .img_size = 5,
                                          .dag_vaddr = 4294967294,
                                          .pkg_size = 4294967293,
                                          .dag_name = "net"}) +
                              "image");
  expect_tool(inspect, 1,
              "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n"
              "\n"
              "dvi_id: 255\t dvi_img_vaddr: 4294967295\t dvi_img_size: 5\t dvi_dag_vaddr: "
              "4294967294\t input_num: 0\t output_num: 0\t dvi_pkg_size: 4294967293\t dvi_ppv: 253"
              "\t vproc_id: 254\t dag_name: net\n"
              "\n"
              "dvi_id: 255 dag_name: net input_num: 0 output_num: 0\n"
              "\n"
              ".dvi files are parsed to folder ./parse\n"
              "\n");
  expect_files(folder.files("parse"), {{"net.dvi", "image"},
                                       {"_net.h",
                                        "#define\tnet_DAG_NAME\t\"net\"\n"
                                        "#define\tnet_use_ping_pong_vmem\t253\n"
                                        "#define\tnet_image_start\t4294967295\n"
                                        "#define\tnet_image_size\t5\n"
                                        "#define\tnet_dagbin_start\t4294967294\n"}});
}

TEST_F(Inspection, NumbersThePortsOfEachListFromZeroAndShowsEveryField) {
  folder.write("net.bin", package_header(1) +
                              dvi_record({.input_num = 2, .output_num = 1, .dag_name = "n"}) +
                              port_record({.port_name = "a",
                                           .layer_name = "l/m",
                                           .P = 1,
                                           .D = 2,
                                           .H = 3,
                                           .W = 4,
                                           .pitch = 5,
                                           .dram_format = 206,
                                           .flags = 0x15,
                                           .drotate_bit_offset = 7,
                                           .hflip_bit_offset = 8,
                                           .vflip_bit_offset = 9,
                                           .dflip_bit_offset = 10,
                                           .pflip_bit_offset = 11,
                                           .sign = 212,
                                           .datasize = 213,
                                           .expoffset = 0x80,
                                           .expbits = 214,
                                           .port_size = 15,
                                           .port_byte_offset = 16}) +
                              port_record({.port_name = "b", .flags = 0xEA, .expoffset = 0x7F}) +
                              port_record({.port_name = "c"}));
  expect_tool(
      inspect, 1,
      "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n"
      "\n"
      "dvi_id: 0\t dvi_img_vaddr: 0\t dvi_img_size: 0\t dvi_dag_vaddr: 0\t input_num: 2\t "
      "output_num: 1\t dvi_pkg_size: 0\t dvi_ppv: 0\t vproc_id: 0\t dag_name: n\n"
      "\n"
      "dvi_id: 0 dag_name: n input_num: 2 output_num: 1\n"
      "input_id: 0\t port_size: 15\t port_byte_offset: 16\t bitvector: 1\t dim: (P, D, H, W) = ( "
      "1, 2, 3, 4)\tpitch: 5\tdram_format: 206\tdata_format: (212, 213, -128, 214)\t"
      "port rotate bit (p, d, v, h, r): (0, 1, 0, 1, 0)\t"
      "port rotate offset(p, d, v, h, r): (11, 10, 9, 8, 7)\tport_name: a\t(layer_name: l/m)\n"
      "input_id: 1\t port_size: 0\t port_byte_offset: 0\t bitvector: 0\t dim: (P, D, H, W) = ( "
      "0, 0, 0, 0)\tpitch: 0\tdram_format: 0\tdata_format: (255, 255, 127, 255)\t"
      "port rotate bit (p, d, v, h, r): (1, 0, 1, 0, 1)\t"
      "port rotate offset(p, d, v, h, r): (0, 0, 0, 0, 0)\tport_name: b\t\n"
      "output_id: 0\t port_size: 0\t port_byte_offset: 0\t bitvector: 0\t dim: (P, D, H, W) = ( "
      "0, 0, 0, 0)\tpitch: 0\tdram_format: 0\tdata_format: (255, 255, -1, 255)\t"
      "port rotate bit (p, d, v, h, r): (0, 0, 0, 0, 0)\t"
      "port rotate offset(p, d, v, h, r): (0, 0, 0, 0, 0)\tport_name: c\t\n"
      "\n"
      ".dvi files are parsed to folder ./parse\n"
      "\n");
}

// A package with vproc records, and its report up to the vproc section.
const dvi_fields vproc_7 = {.vproc_id = 7, .dag_name = "net"};
const std::string with_vproc = package_header(1) + dvi_record(vproc_7) + vproc_record(1, 1, 268) +
                               variable_record("gain", 1, 2) + smb_record("lut", 3);
const std::string report_without_vproc = report_begin({vproc_7});

TEST_F(Inspection, WithoutVprocOptionLeavesTheVprocSectionOut) {
  folder.write("net.bin", with_vproc);
  expect_tool(inspect, 1, report_without_vproc + report_end("."));
  expect_files(folder.files("parse"), {{"net.dvi", ""}, {"_net.h", dag_block(vproc_7)}});
}

TEST_F(Inspection, WithVprocOptionSkipsASectionThatIsNotThere) {
  folder.write("net.bin", package_header(1) + dvi_record(vproc_7));
  expect_tool(inspect_with_vproc, 1, report_without_vproc + report_end("."));
}

TEST_F(Inspection, DoesNotUseTheDeclaredSizes) {
  folder.write("net.bin", package_header(1) + dvi_record(vproc_7) + vproc_record(1, 0, 99) +
                              variable_record("x", 0, 4294967295));
  expect_tool(inspect_with_vproc, 1,
              report_without_vproc +
                  "vproc_id: 7 dag_name: net variable_num: 1 smb_num: 0\n"
                  "\n"
                  "var: x\t boffset = 0\t bsize = 4294967295\n"
                  "\n"
                  "\n" +
                  report_end("."));
}

}  // namespace
}  // namespace morvane::test
