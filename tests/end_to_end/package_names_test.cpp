// Names in packages of other programs: with slashes, without a NUL, with any byte.
#include <gtest/gtest.h>

#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

const std::vector<std::string> inspect_into_out = {"-f", "net.bin", "-v", "-p", "out"};

std::string table_line(const std::string& size, const std::string& name) {
  return "dvi_id: 0\t dvi_img_vaddr: 0\t dvi_img_size: " + size +
         "\t dvi_dag_vaddr: 0\t input_num: 0\t output_num: 0\t dvi_pkg_size: 0\t dvi_ppv: 0\t "
         "vproc_id: 0\t dag_name: " +
         name + "\n";
}

TEST(PackageName, WithASlashNamesFilesThatCannotBeCreated) {
  for (const std::string name : {"../net", "/net", "a/b", "net/", "..//.."}) {
    SCOPED_TRACE(name);
    const scratch_folder folder;
    const std::string package = package_header(2) + dvi_record({.img_size = 5, .dag_name = name}) +
                                dvi_record({.img_size = 4, .dag_name = "next"}) + "imagenext";
    folder.write("net.bin", package);
    folder.write("out/_..", "stands where ../ would lead");
    folder.write("out/net.dvi", "above the parse folder");
    folder.write("out/_net.h", "above the parse folder");
    folder.write("out/parse/a/b.dvi", "in a folder of the parse folder");
    folder.write("out/parse/_a/b.h", "in a folder of the parse folder");
    expect_run(run_tool(inspect_into_out, folder.path()), 1,
               "version 2.1.6 ( HASH b3b3814 ) dvi_num: 2\n\n" + table_line("5", name) +
                   table_line("4", "next") + "can't open file out/parse/_" + name +
                   ".h\n"
                   "\n"
                   "dvi_id: 0 dag_name: " +
                   name + " input_num: 0 output_num: 0\n" +                //
                   "can't open file out/parse/_" + name + ".h\n" +         //
                   "can't open file out/parse/_" + name + ".h\n" + "\n" +  //
                   "can't open file out/parse/" + name +
                   ".dvi\n"
                   "dvi_id: 0 dag_name: next input_num: 0 output_num: 0\n"
                   "\n"
                   "error: fail to save parsed .dvi files to folder out/parse\n"
                   "\n");
    expect_files(folder.files(), {{"net.bin", package},
                                  {"out/_..", "stands where ../ would lead"},
                                  {"out/net.dvi", "above the parse folder"},
                                  {"out/_net.h", "above the parse folder"},
                                  {"out/parse/a/b.dvi", "in a folder of the parse folder"},
                                  {"out/parse/_a/b.h", "in a folder of the parse folder"},
                                  {"out/parse/next.dvi", "next"},
                                  {"out/parse/_next.h",
                                   "#define\tnext_DAG_NAME\t\"next\"\n"
                                   "#define\tnext_use_ping_pong_vmem\t0\n"
                                   "#define\tnext_image_start\t0\n"
                                   "#define\tnext_image_size\t4\n"
                                   "#define\tnext_dagbin_start\t0\n"}});
  }
}

TEST(PackageName, OfDotsIsAName) {
  const scratch_folder folder;
  folder.make_folder("out");
  folder.write("net.bin",
               package_header(1) + dvi_record({.img_size = 5, .dag_name = ".."}) + "image");
  expect_run(run_tool(inspect_into_out, folder.path()), 1,
             "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n\n" + table_line("5", "..") +
                 "\n"
                 "dvi_id: 0 dag_name: .. input_num: 0 output_num: 0\n"
                 "\n"
                 ".dvi files are parsed to folder out/parse\n"
                 "\n");
  EXPECT_EQ(folder.read("out/parse/...dvi"), "image");
  EXPECT_TRUE(folder.exists("out/parse/_...h"));
}

TEST(PackageName, EndsAtItsFirstNul) {
  const scratch_folder folder;
  folder.make_folder("out");
  folder.write("net.bin",
               package_header(1) + dvi_record({.dag_name = std::string_view("net\0work", 8)}));
  EXPECT_EQ(run_tool(inspect_into_out, folder.path()).status, 1);
  EXPECT_TRUE(folder.exists("out/parse/net.dvi"));
}

TEST(PackageName, WithoutANulEndsWithItsField) {
  const scratch_folder folder;
  folder.make_folder("out");
  const std::string dag(128, 'd');
  const std::string port(512, 'p');
  const std::string layer(512, 'l');
  const std::string variable(128, 'v');
  const std::string smb(128, 's');
  folder.write("net.bin", package_header(1) + dvi_record({.input_num = 1, .dag_name = dag}) +
                              port_record({.port_name = port, .layer_name = layer}) +
                              vproc_record(1, 1, 0) + variable_record(variable, 1, 2) +
                              smb_record(smb, 3));
  expect_run(
      run_tool({"-f", "net.bin", "-v", "-p", "out", "-c"}, folder.path()), 1,
      "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n"
      "\n"
      "dvi_id: 0\t dvi_img_vaddr: 0\t dvi_img_size: 0\t dvi_dag_vaddr: 0\t input_num: 1\t "
      "output_num: 0\t dvi_pkg_size: 0\t dvi_ppv: 0\t vproc_id: 0\t dag_name: " +
          dag + "\n\n" + "dvi_id: 0 dag_name: " + dag + " input_num: 1 output_num: 0\n" +
          "input_id: 0\t port_size: 0\t port_byte_offset: 0\t bitvector: 0\t dim: (P, D, H, W) = "
          "( 0, 0, 0, 0)\tpitch: 0\tdram_format: 0\tdata_format: (255, 255, -1, 255)\t"
          "port rotate bit (p, d, v, h, r): (0, 0, 0, 0, 0)\t"
          "port rotate offset(p, d, v, h, r): (0, 0, 0, 0, 0)\tport_name: " +
          port + "\t(layer_name: " + layer + ")\n\n" + "vproc_id: 0 dag_name: " + dag +
          " variable_num: 1 smb_num: 1\n\n" + "var: " + variable +
          "\t boffset = 1\t bsize = 2\n\n" + "smb_id: 0\t vbase_byte_offset: 3\t smb_name: " + smb +
          "\n\n"
          ".dvi files are parsed to folder out/parse\n\n");
  EXPECT_TRUE(folder.exists("out/parse/" + dag + ".dvi"));
  EXPECT_NE(folder.read("out/parse/_" + dag + ".h").find("#define\t" + variable + "_bsize\t2\n"),
            std::string::npos);
}

TEST(PackageName, IsPrintedAndWrittenAsItStands) {
  const scratch_folder folder;
  folder.make_folder("out");
  const std::string name = "a b\t\xC3\xA9\xFF\r\"%s\n";
  folder.write("net.bin", package_header(1) + dvi_record({.dag_name = name}));
  expect_run(run_tool(inspect_into_out, folder.path()), 1,
             "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n\n" + table_line("0", name) +
                 "\n"
                 "dvi_id: 0 dag_name: " +
                 name +
                 " input_num: 0 output_num: 0\n"
                 "\n"
                 ".dvi files are parsed to folder out/parse\n"
                 "\n");
  expect_files(folder.files("out/parse"),
               {{name + ".dvi", ""},
                {"_" + name + ".h", "#define\t" + name + "_DAG_NAME\t\"" + name + "\"\n" +  //
                                        "#define\t" + name + "_use_ping_pong_vmem\t0\n" +   //
                                        "#define\t" + name + "_image_start\t0\n" +          //
                                        "#define\t" + name + "_image_size\t0\n" +           //
                                        "#define\t" + name + "_dagbin_start\t0\n"}});
}

}  // namespace
}  // namespace morvane::test
