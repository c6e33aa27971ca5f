#include "driver/pack_run.h"

#include <gtest/gtest.h>

#include "command_line.h"
#include "harness/scratch_folder.h"
#include "printed_text.h"

namespace morvane {
namespace {

std::string zeros(std::size_t count) {
  return std::string(count, '\0');
}

/// A header of a DAG with an image of five bytes, and further lines.
std::string header_of(const std::string& name, const std::string& rest = "") {
  return std::string("#define ") + name + "_DAG_NAME " + name + "\n#define " + name +
         "_image_size 5\n" + rest;
}

class RunPack : public test::FreshSettings {
 protected:
  RunPack() {
    folder.make_folder("out");
    settings.dir = folder.path("out");
    settings.filename = folder.path("net.bin");
    settings.parsedir = folder.path();
  }

  /// Packs the folder. Returns the printed text, with DIR for the folder of the test.
  std::string run(int status) {
    const std::string printed = test::printed_by([&] { EXPECT_EQ(run_pack(), status); });
    return test::with_dir(printed, folder.path());
  }

  test::scratch_folder folder;
};

const std::string no_ports_a =
    "warning: fail to find HMB input info in DIR/out/a.h\n"
    "warning: fail to find HMB output info in DIR/out/a.h\n";

TEST_F(RunPack, WritesHeaderTablePortsAndImage) {
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", header_of("a", "/* a HMB_input x */\n/* a HMB_output y */\n"));
  EXPECT_EQ(run(0), "Save to file DIR/net.bin with file size 2333.\n\n");
  const std::string ports_begin = zeros(44) + "\xFF\xFF\xFF\xFF" + zeros(8);
  EXPECT_EQ(folder.read("net.bin"),
            std::string("\x06\0\x01\x02\x14\x38\x3B\x0B\x01\0\0\0", 12) +  // version, HASH, dvi_num
                zeros(8) + std::string("\x05\0\0\0", 4) + zeros(4) +       // dvi_img_size
                std::string("\x01\0\0\0\x01\0\0\0", 8) +                   // one port a side
                std::string("\x75\x08\0\0", 4) + "a" + zeros(127) +        // 2165, dag_name
                ports_begin + "x" + zeros(1023) + ports_begin + "y" + zeros(1023) + "image");
}

TEST_F(RunPack, WritesDviAfterDviInTheOrderOfTheIndex) {
  folder.write("out/z_split_0.dvi", "first");
  folder.write("out/z_split_0.h", header_of("z"));
  folder.write("out/a_split_1.dvi", "other");
  folder.write("out/a_split_1.h", header_of("a"));
  run(0);
  const std::string package = folder.read("net.bin");
  EXPECT_EQ(package.size(), 12U + 2 * 156 + 10);
  EXPECT_EQ(package.substr(12 + 28, 2), std::string("z\0", 2));
  EXPECT_EQ(package.substr(12 + 156, 2), "\x01\x01");
  EXPECT_EQ(package.substr(12 + 156 + 28, 2), std::string("a\0", 2));
  EXPECT_EQ(package.substr(12 + 2 * 156), "firstother");
}

TEST_F(RunPack, WarnsOfMissingPortsAndGoesOn) {
  folder.write("out/a.dvi", "image and more");
  folder.write("out/a.h", header_of("a"));
  EXPECT_EQ(run(0), no_ports_a + "Save to file DIR/net.bin with file size 173.\n\n");
  EXPECT_EQ(folder.read("net.bin").size(), 173U);
}

TEST_F(RunPack, AppendsTheVprocSectionAndChangesNothingElse) {
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", header_of("a", "/* $v */\n#define v_bsize 2\n/* a SMB_input s */\n"));
  run(0);
  const std::string without = folder.read("net.bin");
  settings.vproc = true;
  EXPECT_EQ(run(0), no_ports_a + "Save to file DIR/net.bin with file size 453.\n\n");
  EXPECT_EQ(folder.read("net.bin"), without + std::string("\x01\0\0\0\x01\0\0\0\x0C\x01\0\0", 12) +
                                        "v" + zeros(131) + std::string("\x02\0\0\0", 4) + "s" +
                                        zeros(131));
}

TEST_F(RunPack, WarnsOfMissingVariablesButNotOfMissingSmbs) {
  settings.vproc = true;
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", header_of("a"));
  EXPECT_EQ(run(0), no_ports_a +
                        "warning: fail to find vproc self-defined variables in DIR/out/a.h\n"
                        "Save to file DIR/net.bin with file size 185.\n\n");
  EXPECT_EQ(folder.read("net.bin").substr(173), zeros(12));
}

TEST_F(RunPack, RefusesAFolderWithoutDvis) {
  EXPECT_EQ(run(-1), "error: can't find matched .dvi files and .h files\n");
  settings.dir = folder.path("missing");
  EXPECT_EQ(run(-1), "error: can't find matched .dvi files and .h files\n");
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST_F(RunPack, RefusesADviWithoutHeader) {
  folder.write("out/a.dvi", "image");
  EXPECT_EQ(run(-1),
            "error: can't find file a.h. please check filename format between .dvi and .h files.\n"
            "error: number of DVI files doesn't match that of Header files.\n");
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST_F(RunPack, RefusesDvisThatAreOutOfOrder) {
  folder.write("out/a_split_1.dvi", "image");
  folder.write("out/a_split_1.h", header_of("a"));
  EXPECT_EQ(run(-1),
            "error: files in input folder are disordered.\n"
            "error: number of DVI files doesn't match that of Header files.\n");
}

TEST_F(RunPack, RefusesDuplicateDagNamesWithVprocOnly) {
  for (const char* file : {"a_split_0", "a_split_1"}) {
    folder.write(std::string("out/") + file + ".dvi", "image");
    folder.write(std::string("out/") + file + ".h", header_of("a"));
  }
  settings.vproc = true;
  EXPECT_EQ(run(-1),
            "error: detection duplicate DAG NAME between file DIR/out/a_split_1.h and file "
            "DIR/out/a_split_0.h\n");
  EXPECT_FALSE(folder.exists("net.bin"));
  settings.vproc = false;
  run(0);
  EXPECT_EQ(folder.read("net.bin").size(), 12U + 2 * 156 + 10);
}

TEST_F(RunPack, RefusesAPackageThatCannotBeCreated) {
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", header_of("a"));
  settings.filename = folder.path("missing/net.bin");
  EXPECT_EQ(run(-1), "error: can't open file DIR/missing/net.bin\n");
}

TEST_F(RunPack, StopsWithoutFurtherMessageAtADagNameThatIsTooLong) {
  const std::string name(128, 'n');
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", header_of(name));
  EXPECT_EQ(run(-1), test::length_message("VAR_NAME", name) +
                         "warning: fail to find DVI descriptions in DIR/out\n");
  EXPECT_EQ(folder.read("net.bin").size(), 12U);
}

TEST_F(RunPack, WritesTheDescriptionsBeforeADagNameThatIsTooLong) {
  const std::string name(128, 'n');
  folder.write("out/a_split_0.dvi", "image");
  folder.write("out/a_split_0.h", header_of("a"));
  folder.write("out/a_split_1.dvi", "image");
  folder.write("out/a_split_1.h", header_of(name));
  EXPECT_EQ(run(-1), test::length_message("VAR_NAME", name));
  EXPECT_EQ(folder.read("net.bin").size(), 168U);
}

TEST_F(RunPack, LeavesThePackageAsFarAsItWasWrittenBeforeABadPort) {
  const std::string name(512, 'n');
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", header_of("a", "HMB_input x\nHMB_output " + name + "\n"));
  EXPECT_EQ(run(-1), test::length_message("IO_NAME", name));
  EXPECT_EQ(folder.read("net.bin").size(), 168U);
}

TEST_F(RunPack, LeavesThePackageAsFarAsItWasWrittenBeforeAShortImage) {
  folder.write("out/a.dvi", "imag");
  folder.write("out/a.h", header_of("a", "HMB_input x\nHMB_output y\n"));
  EXPECT_EQ(run(-1), "error: fail to read 5 bytes from DIR/out/a.dvi\n");
  EXPECT_EQ(folder.read("net.bin").size(), 168U + 2 * 1080);
}

TEST_F(RunPack, StopsAtABadVariableOrSmb) {
  const std::string name(128, 'n');
  settings.vproc = true;
  folder.write("out/a.dvi", "image");
  for (const char* keyword : {"$", "SMB_input "}) {
    folder.write("out/a.h", header_of("a", keyword + name + "\n"));
    EXPECT_EQ(run(-1), no_ports_a + test::length_message("VAR_NAME", name));
    EXPECT_EQ(folder.read("net.bin").size(), 173U + 12);
  }
}

TEST_F(RunPack, ShowsTheSizeThatTheRecordsDeclare) {
  // A port before the DAG's name is written but not counted.
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", "HMB_input x\n" + header_of("a"));
  EXPECT_EQ(run(0),
            "warning: fail to find HMB output info in DIR/out/a.h\n"
            "Save to file DIR/net.bin with file size 173.\n\n");
  EXPECT_EQ(folder.read("net.bin").size(), 173U + 1080);
}

TEST_F(RunPack, InspectsThePackageAfterTheSizeLine) {
  settings.verbose = true;
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", header_of("a"));
  EXPECT_TRUE(run(0).starts_with(no_ports_a +
                                 "Save to file DIR/net.bin with file size 173.\n\nversion "
                                 "2.1.6 ( HASH b3b3814 ) dvi_num: 1\n"));
  EXPECT_EQ(folder.read("parse/a.dvi"), "image");
}

TEST_F(RunPack, SucceedsEvenWhenTheInspectionFails) {
  settings.verbose = true;
  settings.filename = "/dev/null";
  settings.parsedir = folder.path("missing");
  folder.write("out/a.dvi", "image");
  folder.write("out/a.h", header_of("a"));
  EXPECT_TRUE(
      run(0).ends_with("error: fail to parse file /dev/null\n"
                       ".dvi files are parsed to folder DIR/missing/parse\n\n"));
}

TEST_F(RunPack, DoesNotInspectAfterAFailure) {
  settings.verbose = true;
  folder.write("out/a.dvi", "imag");
  folder.write("out/a.h", header_of("a"));
  EXPECT_EQ(run(-1), no_ports_a + "error: fail to read 5 bytes from DIR/out/a.dvi\n");
  EXPECT_FALSE(folder.exists("parse"));
}

}  // namespace
}  // namespace morvane
