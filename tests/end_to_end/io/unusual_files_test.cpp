// Input that is not a regular file: folders, links, devices, and pipes without a writer.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "end_to_end/tool_test.h"
#include "harness/filled_pipe.h"

namespace morvane::test {
namespace {

using UnusualHeader = tool_test;

TEST_F(UnusualHeader, AFolderADanglingLinkOrAPipeThatNobodyWritesToReadsAsEmpty) {
  const std::string header = folder.path("in/_net.h");
  const auto expect_empty = [&] {
    expect_tool(pack_with_vproc, 0,
                no_ports + "warning: fail to find vproc self-defined variables in in/_net.h\n" +
                    saved("180"));
    expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({}) + no_vproc);
    std::filesystem::remove(header);
  };
  folder.write("in/net.dvi", "image");
  folder.make_folder("in/_net.h");
  expect_empty();
  std::filesystem::create_symlink("nowhere", header);
  expect_empty();
  ASSERT_EQ(::mkfifo(header.c_str(), 0600), 0);
  expect_empty();
}

TEST_F(UnusualHeader, ALinkToAHeaderIsRead) {
  folder.write("in/net.dvi", "");
  folder.write("header", dag_lines("net"));
  std::filesystem::create_symlink("../header", folder.path("in/_net.h"));
  tool(pack);
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "net"}));
}

using UnusualImage = tool_test;

TEST_F(UnusualImage, AFolderIsADviAllTheSame) {
  folder.make_folder("in/net.dvi");
  folder.write("in/_net.h", dag_lines("net"));
  expect_tool(pack, 0, no_ports + saved("168"));
}

TEST_F(UnusualImage, AFolderOrAPipeThatNobodyWritesToYieldsNoBytes) {
  const auto expect_no_bytes = [&] {
    expect_tool(pack, 255, no_ports + "error: fail to read 4 bytes from in/net.dvi\n");
    expect_bytes(folder.read("net.bin"),
                 package_header(1) + dvi_record({.img_size = 4, .pkg_size = 4, .dag_name = "net"}));
  };
  folder.write("in/_net.h", dag_lines("net", 4));
  folder.make_folder("in/net.dvi");
  expect_no_bytes();
  std::filesystem::remove(folder.path("in/net.dvi"));
  ASSERT_EQ(::mkfifo(folder.path("in/net.dvi").c_str(), 0600), 0);
  expect_no_bytes();
}

TEST_F(UnusualImage, APipeIsPackedAsFarAsTheImageGoes) {
  folder.write("in/_net.h", dag_lines("net", 300000));
  const filled_pipe pipe(folder.path("in/net.dvi"), std::string(300001, 'i'));
  if (!pipe.filled()) {
    GTEST_SKIP() << "pipes of 300001 bytes cannot be had here";
  }
  expect_tool(pack, 0, no_ports + saved("300168"));
  expect_bytes(folder.read("net.bin").substr(168), std::string(300000, 'i'));
}

TEST_F(UnusualImage, NothingOfAPipeThatEndsEarlyIsPacked) {
  folder.write("in/_net.h", dag_lines("net", 300001));
  const filled_pipe pipe(folder.path("in/net.dvi"), std::string(300000, 'i'));
  if (!pipe.filled()) {
    GTEST_SKIP() << "pipes of 300000 bytes cannot be had here";
  }
  expect_tool(pack, 255, no_ports + "error: fail to read 300001 bytes from in/net.dvi\n");
  expect_bytes(
      folder.read("net.bin"),
      package_header(1) + dvi_record({.img_size = 300001, .pkg_size = 300001, .dag_name = "net"}));
}

TEST_F(UnusualImage, ADeviceIsReadLikeAFile) {
  folder.write("in/_net.h", dag_lines("net", 300000));
  std::filesystem::create_symlink("/dev/zero", folder.path("in/net.dvi"));
  expect_tool(pack, 0, no_ports + saved("300168"));
  expect_bytes(folder.read("net.bin").substr(168), std::string(300000, '\0'));
}

TEST_F(UnusualImage, AFileThatDoesNotTellItsSizeIsReadAllTheSame) {
  folder.write("in/_net.h", dag_lines("net", 5));
  std::filesystem::create_symlink("/proc/self/status", folder.path("in/net.dvi"));
  tool(pack);
  expect_bytes(folder.read("net.bin").substr(168), "Name:");
}

TEST_F(UnusualImage, NothingOfAShortPipeIsPackedWhenTheBufferWasWritten) {
  const std::string image(300000, 'i');
  put_dag("a_split_0", dag_lines("a", 300000), image);
  folder.write("in/_b_split_1.h", dag_lines("b", 6));
  const filled_pipe pipe(folder.path("in/b_split_1.dvi"), "image");
  if (!pipe.filled()) {
    GTEST_SKIP() << "the size of a pipe cannot be set here";
  }
  EXPECT_EQ(tool(pack).status, 255);
  expect_bytes(folder.read("net.bin").substr(12 + 2 * 156), image);
}

using UnusualPackage = tool_test;

TEST_F(UnusualPackage, AFullDiskGoesUnnoticed) {
  folder.write("in/_net.h", dag_lines("net", 5));
  folder.write("in/net.dvi", "image");
  expect_tool({"-d", "in", "-f", "/dev/full"}, 0,
              no_ports + "Save to file /dev/full with file size 173.\n\n");
}

TEST_F(UnusualPackage, APipeGetsEveryByte) {
  const std::string image(1048577, 'i');
  put_dag("net", dag_lines("net", 1048577), image);
  ASSERT_EQ(::mkfifo(folder.path("net.bin").c_str(), 0600), 0);
  const int received =
      ::open(folder.path("received").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  const pid_t reader = start_program({"cat", "net.bin"}, folder.path(), received);
  ::close(received);
  EXPECT_EQ(tool(pack).status, 0);
  EXPECT_EQ(wait_for(reader), 0);
  expect_bytes(folder.read("received"),
               package_header(1) +
                   dvi_record({.img_size = 1048577, .pkg_size = 1048577, .dag_name = "net"}) +
                   image);
}

TEST_F(UnusualPackage, APipeOrAFolderReadsAsEmpty) {
  folder.make_folder("folder");
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  for (const std::string package : {"folder", "pipe"}) {
    expect_tool({"-f", package, "-v", "-c"}, 1,
                "version 0.0.0 ( HASH 0000000 ) dvi_num: 0\n"
                "\n"
                "\n"
                "error: fail to parse file " +
                    package +
                    "\n"
                    ".dvi files are parsed to folder .//parse\n"
                    "\n");
  }
}

}  // namespace
}  // namespace morvane::test
