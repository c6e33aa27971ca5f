#include "inspect/inspect_package.h"

#include <gtest/gtest.h>

#include <new>

#include "harness/scratch_folder.h"
#include "printed_text.h"
#include "sample_records.h"

namespace morvane {
namespace {

using test::dvi_named;
using test::record_text;

using file_map = std::map<std::string, std::string>;

/// The package header of this build for this number of DVIs.
std::string header_bytes(std::uint32_t dvi_num) {
  return record_text(pkg_header{.version = 0x02010006, .HASH = 0x0B3B3814, .dvi_num = dvi_num});
}

/// A DVI without ports, with an image of this size.
dvi_desc dvi_with_image(std::string_view name, std::uint32_t size) {
  dvi_desc dvi = dvi_named(name);
  dvi.dvi_img_size = size;
  dvi.dvi_pkg_size = size;
  return dvi;
}

std::string vproc_bytes(std::uint32_t variable_num, std::uint32_t smb_num) {
  return record_text(vproc_desc{variable_num, smb_num, 0});
}

/// The DAG block of such a DVI.
std::string dag_block(const std::string& name, const std::string& size) {
  const std::string define = "#define\t" + name;
  return define + "_DAG_NAME\t\"" + name + "\"\n" + define + "_use_ping_pong_vmem\t0\n" + define +
         "_image_start\t0\n" + define + "_image_size\t" + size + "\n" + define +
         "_dagbin_start\t0\n";
}

class InspectPackage : public testing::Test {
 protected:
  /// Inspects a package of these bytes. Returns the report, with DIR for the folder.
  std::string report(const std::string& package, bool vproc = false) {
    folder.write("net.bin", package);
    return report_of("net.bin", ".", vproc);
  }

  std::string report_of(std::string_view package, std::string_view parsedir, bool vproc,
                        int status = 0) {
    const std::string printed = test::printed_by([&] {
      EXPECT_EQ(inspect_package(folder.path(package), folder.path(parsedir), vproc), status);
    });
    return test::with_dir(printed, folder.path());
  }

  test::scratch_folder folder;
};

TEST_F(InspectPackage, ReportsAMissingPackageAndMakesNoFolder) {
  EXPECT_EQ(report_of("missing.bin", ".", false, -1), "can't open file DIR/missing.bin\n");
  EXPECT_FALSE(folder.exists("parse"));
}

TEST_F(InspectPackage, TakesAHeaderThatIsNotWholeForNone) {
  for (const std::string& package : {std::string(), header_bytes(1).substr(0, 11)}) {
    EXPECT_EQ(report(package, true),
              "version 0.0.0 ( HASH 0000000 ) dvi_num: 0\n\n\n"
              "error: fail to parse file DIR/net.bin\n"
              ".dvi files are parsed to folder DIR/./parse\n\n");
    EXPECT_TRUE(folder.exists("parse"));
  }
}

TEST_F(InspectPackage, ReportsAPackageWithoutDvis) {
  EXPECT_EQ(report(header_bytes(0), true),
            "version 2.1.6 ( HASH b3b3814 ) dvi_num: 0\n\n\n"
            ".dvi files are parsed to folder DIR/./parse\n\n");
}

TEST_F(InspectPackage, ReportsAndExtractsADviWithoutPorts) {
  EXPECT_EQ(report(header_bytes(1) + record_text(dvi_with_image("net", 5)) + "image"),
            "version 2.1.6 ( HASH b3b3814 ) dvi_num: 1\n"
            "\n"
            "dvi_id: 0\t dvi_img_vaddr: 0\t dvi_img_size: 5\t dvi_dag_vaddr: 0\t input_num: 0\t "
            "output_num: 0\t dvi_pkg_size: 5\t dvi_ppv: 0\t vproc_id: 0\t dag_name: net\n"
            "\n"
            "dvi_id: 0 dag_name: net input_num: 0 output_num: 0\n"
            "\n"
            ".dvi files are parsed to folder DIR/./parse\n\n");
  EXPECT_EQ(folder.files("parse"),
            (file_map{{"_net.h", dag_block("net", "5")}, {"net.dvi", "image"}}));
}

TEST_F(InspectPackage, ReadsInputsOutputsAndImageInThisOrder) {
  dvi_desc dvi = dvi_with_image("net", 1);
  dvi.input_num = 1;
  dvi.output_num = 2;
  const std::string text =
      report(header_bytes(1) + record_text(dvi) + record_text(test::port_named("in")) +
             record_text(test::port_named("out0")) + record_text(test::port_named("out1")) + "i");
  EXPECT_LT(text.find("input_num: 1 output_num: 2\n"), text.find("\ninput_id: 0\t"));
  EXPECT_LT(text.find("\ninput_id: 0\t"), text.find("\noutput_id: 0\t"));
  EXPECT_LT(text.find("\noutput_id: 0\t"), text.find("\noutput_id: 1\t"));
  EXPECT_LT(text.find("\noutput_id: 1\t"), text.find("\tport_name: out1\t\n\n.dvi files"));
  EXPECT_EQ(folder.read("parse/net.dvi"), "i");
  const std::string header = folder.read("parse/_net.h");
  EXPECT_LT(header.find("/* net HMB_input in */"), header.find("/* net HMB_output out0 */"));
}

TEST_F(InspectPackage, ReadsTheVprocSectionWhenAskedTo) {
  const std::string package = header_bytes(1) + record_text(dvi_with_image("net", 0)) +
                              vproc_bytes(1, 1) + record_text(test::variable_of("gain", 8, 16)) +
                              record_text(test::smb_of("bias", 64));
  const std::string without = report(package);
  EXPECT_EQ(without.find("vproc_id: 0 dag_name"), std::string::npos);
  EXPECT_EQ(folder.read("parse/_net.h"), dag_block("net", "0"));
  const std::string with = report(package, true);
  EXPECT_TRUE(
      with.ends_with("vproc_id: 0 dag_name: net variable_num: 1 smb_num: 1\n\n"
                     "var: gain\t boffset = 8\t bsize = 16\n\n"
                     "smb_id: 0\t vbase_byte_offset: 64\t smb_name: bias\n\n"
                     ".dvi files are parsed to folder DIR/./parse\n\n"));
  EXPECT_EQ(folder.read("parse/_net.h"),
            dag_block("net", "0") +
                "\n/* $gain */\n#define\tgain_boffset\t8\n#define\tgain_bsize\t16\n"
                "\n/* net SMB_input bias */\n#define\tnet_bias_vbase_byte_offset\t64\n");
}

TEST_F(InspectPackage, ShowsTheEmptyLinesOfAVprocWithoutRecords) {
  EXPECT_TRUE(
      report(header_bytes(1) + record_text(dvi_with_image("net", 0)) + vproc_bytes(0, 0), true)
          .ends_with("vproc_id: 0 dag_name: net variable_num: 0 smb_num: 0\n\n\n\n"
                     ".dvi files are parsed to folder DIR/./parse\n\n"));
}

TEST_F(InspectPackage, SkipsAVprocSectionThatIsNotThere) {
  const std::string package = header_bytes(1) + record_text(dvi_with_image("net", 1)) + "i";
  const std::string expected = report(package, false);
  EXPECT_EQ(report(package, true), expected);
  EXPECT_EQ(report(package + "123", true), expected);
}

TEST_F(InspectPackage, TakesFourBytesForTheBeginOfAVprocSection) {
  const std::string package = header_bytes(1) + record_text(dvi_with_image("net", 0));
  const std::string text = report(package + std::string("\1\0\0\0", 4), true);
  EXPECT_TRUE(
      text.ends_with("vproc_id: 0 dag_name: net variable_num: 1 smb_num: 0\n\n"
                     "var: \t boffset = 0\t bsize = 0\n\n\n"
                     ".dvi files are parsed to folder DIR/./parse\n\n"));
}

TEST_F(InspectPackage, GoesOnWithZerosWhereThePackageEnds) {
  dvi_desc dvi = dvi_with_image("net", 100);
  dvi.input_num = 1;
  const std::string text = report(header_bytes(2) + record_text(dvi));
  EXPECT_NE(text.find("vproc_id: 0\t dag_name: net\ndvi_id: 0\t"), std::string::npos);
  EXPECT_NE(text.find("data_format: (0, 0, 0, 0)\t"), std::string::npos);
  EXPECT_NE(text.find("dvi_id: 0 dag_name:  input_num: 0 output_num: 0\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("\n.dvi files are parsed to folder DIR/./parse\n\n"));
  EXPECT_EQ(folder.read("parse/net.dvi"), "");
  EXPECT_EQ(folder.read("parse/.dvi"), "");
  EXPECT_EQ(folder.read("parse/_.h"), dag_block("", "0"));
}

TEST_F(InspectPackage, ExtractsWhatThereIsOfACutImage) {
  report(header_bytes(1) + record_text(dvi_with_image("net", 2000000000)) + "begin");
  EXPECT_EQ(folder.read("parse/net.dvi"), "begin");
}

TEST_F(InspectPackage, GivesTheSameFilesTheSecondTime) {
  const std::string package = header_bytes(1) + record_text(dvi_with_image("net", 5)) + "image";
  report(package);
  const file_map first = folder.files("parse");
  report(package);
  EXPECT_EQ(folder.files("parse"), first);
}

TEST_F(InspectPackage, LetsDvisOfOneNameShareTheirFiles) {
  report(header_bytes(2) + record_text(dvi_with_image("net", 5)) +
         record_text(dvi_with_image("net", 3)) + "firstnew");
  EXPECT_EQ(
      folder.files("parse"),
      (file_map{{"_net.h", dag_block("net", "5") + dag_block("net", "3")}, {"net.dvi", "new"}}));
}

TEST_F(InspectPackage, GoesOnAfterAnImageThatCannotBeCreated) {
  folder.make_folder("parse/net.dvi");
  const std::string text = report(header_bytes(2) + record_text(dvi_with_image("net", 5)) +
                                  record_text(dvi_with_image("b", 3)) + "imageabc");
  EXPECT_NE(text.find("\ncan't open file DIR/./parse/net.dvi\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("\nerror: fail to save parsed .dvi files to folder DIR/./parse\n\n"));
  EXPECT_EQ(folder.read("parse/b.dvi"), "abc");
}

TEST_F(InspectPackage, ReportsAHeaderThatCannotBeOpenedForEveryBlock) {
  folder.write("parse/_net.h/file", "keeps the folder from being deleted");
  const std::string text =
      report(header_bytes(1) + record_text(dvi_with_image("net", 0)) + vproc_bytes(0, 0), true);
  const std::string message = "can't open file DIR/./parse/_net.h\n";
  EXPECT_NE(text.find("\t dag_name: net\n" + message + "\n"), std::string::npos);
  EXPECT_NE(text.find("output_num: 0\n" + message + message + "\n"), std::string::npos);
  EXPECT_NE(text.find("smb_num: 0\n\n" + message + "\n" + message + "\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("\n.dvi files are parsed to folder DIR/./parse\n\n"));
}

TEST_F(InspectPackage, FailsFileByFileWithoutAParseDirectory) {
  folder.write("net.bin", header_bytes(1) + record_text(dvi_with_image("net", 0)));
  const std::string text = report_of("net.bin", "missing", false);
  EXPECT_NE(text.find("can't open file DIR/missing/parse/_net.h\n"), std::string::npos);
  EXPECT_NE(text.find("can't open file DIR/missing/parse/net.dvi\n"), std::string::npos);
  EXPECT_TRUE(
      text.ends_with("error: fail to save parsed .dvi files to folder DIR/missing/parse\n\n"));
  EXPECT_FALSE(folder.exists("missing"));
}

TEST_F(InspectPackage, TouchesNothingOutsideTheParseFolder) {
  folder.write("outside.dvi", "kept");
  folder.write("_x/outside.h", "kept");
  const std::string text = report(header_bytes(2) + record_text(dvi_with_image("../outside", 5)) +
                                  record_text(dvi_with_image("b", 3)) + "imageabc");
  EXPECT_NE(text.find("can't open file DIR/./parse/../outside.dvi\n"), std::string::npos);
  EXPECT_NE(text.find("can't open file DIR/./parse/_../outside.h\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("error: fail to save parsed .dvi files to folder DIR/./parse\n\n"));
  EXPECT_EQ(folder.read("outside.dvi"), "kept");
  EXPECT_EQ(folder.files("parse"), (file_map{{"_b.h", dag_block("b", "3")}, {"b.dvi", "abc"}}));
}

TEST_F(InspectPackage, StopsAtACountThatIsNegativeAsASignedNumber) {
  const auto inspect = [&](const std::string& package) {
    folder.write("net.bin", package);
    testing::internal::CaptureStdout();
    EXPECT_THROW(inspect_package(folder.path("net.bin"), folder.path(), true),
                 std::bad_array_new_length);
    testing::internal::GetCapturedStdout();
  };
  inspect(header_bytes(0xFFFFFFFF));
  inspect(header_bytes(1) + record_text(dvi_with_image("net", 0x80000000)));
  EXPECT_FALSE(folder.exists("parse/net.dvi"));
  dvi_desc dvi = dvi_named("net");
  dvi.output_num = 0x80000000;
  inspect(header_bytes(1) + record_text(dvi));
  inspect(header_bytes(1) + record_text(dvi_named("net")) + vproc_bytes(0, 0xFFFFFFFF));
}

}  // namespace
}  // namespace morvane
