// Which files of the input folder are packed, and which header belongs to which DVI.
#include <gtest/gtest.h>

#include "end_to_end/compiler_output.h"
#include "end_to_end/expectations.h"
#include "end_to_end/package_records.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

std::string no_ports_in(const std::string& header) {
  return "warning: fail to find HMB input info in in/" + header +
         "\nwarning: fail to find HMB output info in in/" + header + "\n";
}

std::string missing(const std::string& header) {
  return "error: can't find file " + header +
         ". please check filename format between .dvi and .h files.\n";
}

std::string no_index(const std::string& dvi) {
  return "error: filename format is incorrect, can't find file index for file " + dvi + "\n";
}

TEST(FolderNaming, ADviMayBeSpelledInAnyCase) {
  const scratch_folder folder;
  folder.write("in/a_split_0.dvi", "");
  folder.write("in/a_split_0.h", dag_lines("a"));
  folder.write("in/b_split_1.DVI", "");
  folder.write("in/b_split_1.h", dag_lines("b"));
  folder.write("in/c_split_2.Dvi", "");
  folder.write("in/c_split_2.h", dag_lines("c"));
  expect_run(run_tool(pack, folder.path()), 0,
             no_ports_in("a_split_0.h") + no_ports_in("b_split_1.h") + no_ports_in("c_split_2.h") +
                 saved("480"));
  expect_bytes(folder.read("net.bin"),
               package_header(3) + dvi_record({.dag_name = "a"}) +
                   dvi_record({.dvi_id = 1, .vproc_id = 1, .dag_name = "b"}) +
                   dvi_record({.dvi_id = 2, .vproc_id = 2, .dag_name = "c"}));
}

TEST(FolderNaming, HeadersWithUnderscoreWinWhenEveryDviHasOne) {
  const scratch_folder folder;
  folder.write("in/a.dvi", "");
  folder.write("in/_a.h", dag_lines("marked"));
  folder.write("in/a.h", dag_lines("plain"));
  expect_run(run_tool(pack, folder.path()), 0, no_ports_in("_a.h") + saved("168"));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "marked"}));
}

TEST(FolderNaming, HeadersWithUnderscoreAreNotUsedWhenOneIsMissing) {
  const scratch_folder folder;
  folder.write("in/a_split_0.dvi", "");
  folder.write("in/b_split_1.dvi", "");
  folder.write("in/_a_split_0.h", dag_lines("a"));
  folder.write("in/b_split_1.h", dag_lines("b"));
  expect_run(run_tool(pack, folder.path()), 255, missing("a_split_0.h") + counts_differ);
  folder.write("in/a_split_0.h", dag_lines("plain"));
  expect_run(run_tool(pack, folder.path()), 0,
             no_ports_in("a_split_0.h") + no_ports_in("b_split_1.h") + saved("324"));
}

TEST(FolderNaming, HeadersAreFoundInTheDvisOwnCase) {
  const scratch_folder upper_dvi;
  upper_dvi.write("in/A.dvi", "");
  upper_dvi.write("in/a.h", dag_lines("a"));
  expect_run(run_tool(pack, upper_dvi.path()), 255, missing("A.h") + counts_differ);

  const scratch_folder upper_header;
  upper_header.write("in/a.dvi", "");
  upper_header.write("in/a.H", dag_lines("a"));
  expect_run(run_tool(pack, upper_header.path()), 255, missing("a.h") + counts_differ);
}

TEST(FolderNaming, OnlyTheLastExtensionIsCutOff) {
  const scratch_folder folder;
  folder.write("in/a.b.dvi", "");
  folder.write("in/_a.b.h", dag_lines("net"));
  folder.write("in/_a.h", dag_lines("wrong"));
  expect_run(run_tool(pack, folder.path()), 0, no_ports_in("_a.b.h") + saved("168"));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "net"}));
}

TEST(FolderNaming, ANameThatIsOnlyAnExtensionHasAnEmptyStem) {
  const scratch_folder folder;
  folder.write("in/.dvi", "");
  folder.write("in/_.h", dag_lines("net"));
  expect_run(run_tool(pack, folder.path()), 0, no_ports_in("_.h") + saved("168"));
}

TEST(FolderNaming, OtherFilesAreIgnored) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  for (const char* name :
       {"notes", "net.dvi.bak", "dvi", "net.dvi2", "net.", "x.h", "y_split_.h"}) {
    folder.write(std::string("in/") + name, "");
  }
  folder.make_folder("in/parse");
  folder.write("in/parse/inner.dvi", "");
  expect_run(run_tool(pack, folder.path()), 0, no_ports_in("_net.h") + saved("168"));
}

TEST(FolderNaming, ADviWithoutItsIndexIsReportedAndLeftOut) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  put_dag(folder, "a_split_1", dag_lines("a"));
  put_dag(folder, "dag0_split_", dag_lines("wrong"));
  expect_run(run_tool(pack, folder.path()), 0,
             no_index("dag0_split_.dvi") + no_ports_in("_net.h") + no_ports_in("_a_split_1.h") +
                 saved("324"));
  expect_bytes(folder.read("net.bin"),
               package_header(2) + dvi_record({.dag_name = "net"}) +
                   dvi_record({.dvi_id = 1, .vproc_id = 1, .dag_name = "a"}));
}

TEST(FolderNaming, AFolderOfNothingButUnindexedDvisHoldsNone) {
  const scratch_folder folder;
  put_dag(folder, "dag0_split_x", dag_lines("wrong"));
  expect_run(run_tool(pack, folder.path()), 255,
             no_index("dag0_split_x.dvi") + "error: can't find matched .dvi files and .h files\n");
}

TEST(FolderNaming, TheIndexIsNotReadAcrossAnEarlierExtension) {
  const scratch_folder folder;
  put_dag(folder, "a1.dvi_split_2", dag_lines("net"));
  expect_run(run_tool(pack, folder.path()), 0, no_ports_in("_a1.dvi_split_2.h") + saved("168"));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "net"}));
}

TEST(FolderNaming, AnEarlierExtensionNeedsADigitBeforeItToo) {
  for (const char* stem : {".dvi_split_3", "a.dvi_split_2"}) {
    SCOPED_TRACE(stem);
    const scratch_folder folder;
    put_dag(folder, stem, dag_lines("wrong"));
    expect_run(run_tool(pack, folder.path()), 255,
               no_index(std::string(stem) + ".dvi") +
                   "error: can't find matched .dvi files and .h files\n");
  }
}

TEST(FolderNaming, NamesOf127CharactersAreTakenAndLongerOnesReportedOnce) {
  const scratch_folder folder;
  const std::string stem(123, 's');
  put_dag(folder, stem, dag_lines("net"));
  const std::string long_dvi = std::string(124, 'l') + ".dvi";
  folder.write("in/" + long_dvi, "");
  expect_run(run_tool(pack, folder.path()), 0,
             length_message("FILENAME", long_dvi) + no_ports_in("_" + stem + ".h") + saved("168"));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record({.dag_name = "net"}));
}

TEST(FolderNaming, AnyFileWithALongNameIsReported) {
  const scratch_folder folder;
  put_dag(folder, "net", dag_lines("net"));
  const std::string notes(128, 'n');
  folder.write("in/" + notes, "");
  expect_run(run_tool(pack, folder.path()), 0,
             length_message("FILENAME", notes) + no_ports_in("_net.h") + saved("168"));
}

}  // namespace
}  // namespace morvane::test
