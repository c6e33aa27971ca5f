// Names in packages of other programs: with slashes, without a NUL, with any byte.
#include "end_to_end/inspection_output.h"
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

const std::vector<std::string> inspect_into_out = {"-f", "net.bin", "-v", "-p", "out"};

using PackageName = tool_test;

TEST_F(PackageName, WithASlashNamesFilesThatCannotBeCreated) {
  for (const std::string name : {"../net", "/net", "a/b", "net/", "..//.."}) {
    SCOPED_TRACE(name);
    const scratch_folder other;
    const dvi_fields dvi = {.img_size = 5, .dag_name = name};
    const dvi_fields next = {.img_size = 4, .dag_name = "next"};
    const std::string lost = "can't open file out/parse/_" + name + ".h\n";
    other.write("net.bin", package_header(2) + dvi_record(dvi) + dvi_record(next) + "imagenext");
    other.make_folder("out/parse/_a");
    expect_run(run_tool(inspect_into_out, other.path()), 1,
               first_line(2) + "\n" + table_line(dvi) + table_line(next) + lost + "\n" +
                   heading(dvi) + lost + lost + "\ncan't open file out/parse/" + name + ".dvi\n" +
                   heading(next) + "\n" + failed_report_end("out"));
    expect_files(other.files("out"),
                 {{"parse/next.dvi", "next"}, {"parse/_next.h", dag_block(next)}});
  }
}

TEST_F(PackageName, OfDotsIsAName) {
  folder.make_folder("out");
  const dvi_fields dvi = {.img_size = 5, .dag_name = ".."};
  folder.write("net.bin", package_header(1) + dvi_record(dvi) + "image");
  expect_tool(inspect_into_out, 1, report_begin({dvi}) + report_end("out"));
  EXPECT_EQ(folder.read("out/parse/...dvi"), "image");
  EXPECT_TRUE(folder.exists("out/parse/_...h"));
}

TEST_F(PackageName, EndsAtItsFirstNul) {
  folder.make_folder("out");
  folder.write("net.bin",
               package_header(1) + dvi_record({.dag_name = std::string_view("net\0work", 8)}));
  EXPECT_EQ(tool(inspect_into_out).status, 1);
  EXPECT_TRUE(folder.exists("out/parse/net.dvi"));
}

TEST_F(PackageName, WithoutANulEndsWithItsField) {
  folder.make_folder("out");
  const std::string dag(128, 'd');
  const std::string port(512, 'p');
  const std::string layer(512, 'l');
  const std::string variable(128, 'v');
  const std::string smb(128, 's');
  const dvi_fields dvi = {.input_num = 1, .dag_name = dag};
  folder.write("net.bin", package_header(1) + dvi_record(dvi) +
                              port_record({.port_name = port, .layer_name = layer}) +
                              vproc_record(1, 1, 0) + variable_record(variable, 1, 2) +
                              smb_record(smb, 3));
  expect_tool(
      {"-f", "net.bin", "-v", "-p", "out", "-c"}, 1,
      first_line(1) + "\n" + table_line(dvi) + "\n" + heading(dvi) +
          "input_id: 0\t port_size: 0\t port_byte_offset: 0\t bitvector: 0\t dim: (P, D, H, W) = "
          "( 0, 0, 0, 0)\tpitch: 0\tdram_format: 0\tdata_format: (255, 255, -1, 255)\t"
          "port rotate bit (p, d, v, h, r): (0, 0, 0, 0, 0)\t"
          "port rotate offset(p, d, v, h, r): (0, 0, 0, 0, 0)\tport_name: " +
          port + "\t(layer_name: " + layer + ")\n\n" + "vproc_id: 0 dag_name: " + dag +
          " variable_num: 1 smb_num: 1\n\n" + "var: " + variable +
          "\t boffset = 1\t bsize = 2\n\n" + "smb_id: 0\t vbase_byte_offset: 3\t smb_name: " + smb +
          "\n\n" + report_end("out"));
  EXPECT_TRUE(folder.exists("out/parse/" + dag + ".dvi"));
  EXPECT_NE(folder.read("out/parse/_" + dag + ".h").find("#define\t" + variable + "_bsize\t2\n"),
            std::string::npos);
}

TEST_F(PackageName, IsPrintedAndWrittenAsItStands) {
  folder.make_folder("out");
  const std::string name = "a b\t\xC3\xA9\xFF\r\"%s\n";
  const dvi_fields dvi = {.dag_name = name};
  folder.write("net.bin", package_header(1) + dvi_record(dvi));
  expect_tool(inspect_into_out, 1, report_begin({dvi}) + report_end("out"));
  expect_files(folder.files("out/parse"),
               {{name + ".dvi", ""}, {"_" + name + ".h", dag_block(dvi)}});
}

}  // namespace
}  // namespace morvane::test
