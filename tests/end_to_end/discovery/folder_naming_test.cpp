// Which files of the input folder are packed, and which header belongs to which DVI.
#include <filesystem>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

std::string missing(const std::string& header) {
  return "error: can't find file " + header +
         ". please check filename format between .dvi and .h files.\n";
}

std::string no_index(const std::string& dvi) {
  return "error: filename format is incorrect, can't find file index for file " + dvi + "\n";
}

using FolderNaming = tool_test;

TEST_F(FolderNaming, ADviMayBeSpelledInAnyCase) {
  folder.write("in/a_split_0.dvi", "");
  folder.write("in/a_split_0.h", dag_lines("a"));
  folder.write("in/b_split_1.DVI", "");
  folder.write("in/b_split_1.h", dag_lines("b"));
  folder.write("in/c_split_2.Dvi", "");
  folder.write("in/c_split_2.h", dag_lines("c"));
  expect_tool(pack, 0,
              no_ports_in("a_split_0.h") + no_ports_in("b_split_1.h") + no_ports_in("c_split_2.h") +
                  saved("480"));
  expect_bytes(folder.read("net.bin"),
               package_header(3) + dvi_record({.dag_name = "a"}) +
                   dvi_record({.dvi_id = 1, .vproc_id = 1, .dag_name = "b"}) +
                   dvi_record({.dvi_id = 2, .vproc_id = 2, .dag_name = "c"}));
}

TEST_F(FolderNaming, HeadersWithUnderscoreWinWhenEveryDviHasOne) {
  folder.write("in/a.dvi", "");
  folder.write("in/_a.h", dag_lines("marked"));
  folder.write("in/a.h", dag_lines("plain"));
  expect_tool(pack, 0, no_ports_in("_a.h") + saved("168"));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "marked"}));
}

TEST_F(FolderNaming, HeadersWithUnderscoreAreNotUsedWhenOneIsMissing) {
  folder.write("in/a_split_0.dvi", "");
  folder.write("in/b_split_1.dvi", "");
  folder.write("in/_a_split_0.h", dag_lines("a"));
  folder.write("in/b_split_1.h", dag_lines("b"));
  expect_tool(pack, 255, missing("a_split_0.h") + counts_differ);
  folder.write("in/a_split_0.h", dag_lines("plain"));
  expect_tool(pack, 0, no_ports_in("a_split_0.h") + no_ports_in("b_split_1.h") + saved("324"));
}

TEST_F(FolderNaming, HeadersAreFoundInTheDvisOwnCase) {
  const scratch_folder upper_dvi;
  upper_dvi.write("in/A.dvi", "");
  upper_dvi.write("in/a.h", dag_lines("a"));
  expect_run(run_tool(pack, upper_dvi.path()), 255, missing("A.h") + counts_differ);

  const scratch_folder upper_header;
  upper_header.write("in/a.dvi", "");
  upper_header.write("in/a.H", dag_lines("a"));
  expect_run(run_tool(pack, upper_header.path()), 255, missing("a.h") + counts_differ);
}

TEST_F(FolderNaming, OnlyTheLastExtensionIsCutOff) {
  folder.write("in/a.b.dvi", "");
  folder.write("in/_a.b.h", dag_lines("net"));
  folder.write("in/_a.h", dag_lines("wrong"));
  expect_tool(pack, 0, no_ports_in("_a.b.h") + saved("168"));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "net"}));
}

TEST_F(FolderNaming, ANameThatIsOnlyAnExtensionHasAnEmptyStem) {
  folder.write("in/.dvi", "");
  folder.write("in/_.h", dag_lines("net"));
  expect_tool(pack, 0, no_ports_in("_.h") + saved("168"));
}

TEST_F(FolderNaming, OtherFilesAreIgnored) {
  put_dag("net", dag_lines("net"));
  for (const char* name :
       {"notes", "net.dvi.bak", "dvi", "net.dvi2", "net.", "x.h", "y_split_.h"}) {
    folder.write(std::string("in/") + name, "");
  }
  folder.make_folder("in/parse");
  folder.write("in/parse/inner.dvi", "");
  expect_tool(pack, 0, no_ports_in("_net.h") + saved("168"));
}

TEST_F(FolderNaming, ADviWithoutItsIndexIsReportedAndLeftOut) {
  put_dag("net", dag_lines("net"));
  put_dag("a_split_1", dag_lines("a"));
  put_dag("dag0_split_", dag_lines("wrong"));
  expect_tool(pack, 0,
              no_index("dag0_split_.dvi") + no_ports_in("_net.h") + no_ports_in("_a_split_1.h") +
                  saved("324"));
  expect_bytes(folder.read("net.bin"),
               package_header(2) + dvi_record({.dag_name = "net"}) +
                   dvi_record({.dvi_id = 1, .vproc_id = 1, .dag_name = "a"}));
}

TEST_F(FolderNaming, AFolderOfNothingButUnindexedDvisHoldsNone) {
  put_dag("dag0_split_x", dag_lines("wrong"));
  expect_tool(pack, 255,
              no_index("dag0_split_x.dvi") + "error: can't find matched .dvi files and .h files\n");
}

TEST_F(FolderNaming, TheIndexIsNotReadAcrossAnEarlierExtension) {
  put_dag("a1.dvi_split_2", dag_lines("net"));
  expect_tool(pack, 0, no_ports_in("_a1.dvi_split_2.h") + saved("168"));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "net"}));
}

TEST_F(FolderNaming, AnEarlierExtensionNeedsADigitBeforeItToo) {
  for (const char* stem : {".dvi_split_3", "a.dvi_split_2"}) {
    SCOPED_TRACE(stem);
    const scratch_folder other;
    test::put_dag(other, stem, dag_lines("wrong"));
    expect_run(run_tool(pack, other.path()), 255,
               no_index(std::string(stem) + ".dvi") +
                   "error: can't find matched .dvi files and .h files\n");
  }
}

TEST_F(FolderNaming, NamesOf127CharactersAreTakenAndLongerOnesOfAnyFileReportedOnce) {
  const std::string stem(123, 's');
  put_dag(stem, dag_lines("net"));
  for (const std::string& name : {std::string(124, 'l') + ".dvi", std::string(128, 'n')}) {
    folder.write("in/" + name, "");
    expect_tool(pack, 0,
                length_message("FILENAME", name) + no_ports_in("_" + stem + ".h") + saved("168"));
    expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "net"}));
    std::filesystem::remove(folder.path("in/" + name));
  }
}

}  // namespace
}  // namespace morvane::test
