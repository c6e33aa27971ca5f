// The order of the DVIs in the package, the order check, and the check for duplicate DAG names.
#include <algorithm>
#include <filesystem>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

constexpr const char* disordered =
    "error: files in input folder are disordered.\n"
    "error: number of DVI files doesn't match that of Header files.\n";

/// Writes DVIs with these names and packs them. Returns the dvi_id of every DVI in the package, or
/// the output of a failed run.
std::string packed_ids(const std::vector<std::string>& stems) {
  const scratch_folder folder;
  for (const std::string& stem : stems) {
    put_dag(folder, stem, dag_lines("net"));
  }
  const run_result run = run_tool(pack, folder.path());
  if (run.status != 0) {
    return run.output;
  }
  const std::string package = folder.read("net.bin");
  std::string ids;
  for (std::size_t record = 12; record < package.size(); record += 156) {
    ids += std::to_string(static_cast<unsigned char>(package[record])) + " ";
  }
  return ids;
}

using InputOrder = tool_test;

TEST_F(InputOrder, FollowsTheFileIndex) {
  EXPECT_EQ(packed_ids({"dag_split_2", "dag_split_0", "dag_split_1"}), "0 1 2 ");
  EXPECT_EQ(packed_ids({"a_split_3", "b_split_02", "c_split_1", "d"}), "0 1 2 3 ");
}

TEST_F(InputOrder, PutsEveryDviInItsPlaceWithItsImage) {
  put_dag("a_split_2", dag_lines("a", 1), "A");
  put_dag("b_split_0", dag_lines("b", 1), "B");
  put_dag("c_split_1", dag_lines("c", 1), "C");
  tool(pack);
  expect_bytes(
      folder.read("net.bin"),
      package_header(3) + dvi_record({.img_size = 1, .pkg_size = 1, .dag_name = "b"}) +
          dvi_record({.dvi_id = 1, .vproc_id = 1, .img_size = 1, .pkg_size = 1, .dag_name = "c"}) +
          dvi_record({.dvi_id = 2, .vproc_id = 2, .img_size = 1, .pkg_size = 1, .dag_name = "a"}) +
          "BCA");
}

TEST_F(InputOrder, OnlyTheDigitsBeforeTheExtensionCount) {
  EXPECT_EQ(packed_ids({"dag_split_0", "dag_split_1", "dag_split_2", "dag0_split_x3"}), "0 1 2 3 ");
  EXPECT_EQ(packed_ids({"dag_split_9_split_0", "dag_split_0_1", "12_split_-2"}), "0 1 2 ");
  EXPECT_EQ(packed_ids({"dag_SPLIT_3", "a_split_2.dvi_x3", "b_split_1"}), "0 1 2 ");
}

TEST_F(InputOrder, RefusesAGreatestIndexThatDoesNotSuitTheNumberOfFiles) {
  EXPECT_EQ(packed_ids({"net_split_2"}), disordered);
  EXPECT_EQ(packed_ids({"dag_split_1"}), disordered);
  EXPECT_EQ(packed_ids({"dag_split_0", "dag_split_1", "dag_split_3"}), disordered);
  EXPECT_EQ(packed_ids({"a", "b", "c_split_1"}), disordered);
  EXPECT_EQ(packed_ids({"a_split_2147483647"}), disordered);
}

TEST_F(InputOrder, AcceptsWhateverStandsBelowTheGreatestIndex) {
  EXPECT_EQ(packed_ids({"dag_split_0"}), "0 ");
  EXPECT_EQ(packed_ids({"dag"}), "0 ");
  EXPECT_EQ(packed_ids({"dag_split_0", "x_split_2", "y_split_2"}), "0 2 2 ");
  EXPECT_EQ(packed_ids({"x_split_1", "y_split_1"}), "1 1 ");
  EXPECT_EQ(packed_ids({"a_split_3", "b_split_3", "c_split_3", "d_split_3"}), "3 3 3 3 ");
  EXPECT_EQ(packed_ids({"a", "b_split_0", "c"}), "0 0 0 ");
}

TEST_F(InputOrder, CutsTheIndexTo32BitsSigned) {
  EXPECT_EQ(packed_ids({"dag_split_4294967296"}), "0 ");
  EXPECT_EQ(packed_ids({"a_split_0", "b_split_4294967297"}), "0 1 ");
  // -1 as a signed number. It comes first, and the order check ignores it.
  EXPECT_EQ(packed_ids({"a_split_0", "b_split_4294967295"}), "255 0 ");
  EXPECT_EQ(packed_ids({"a_split_0", "b_split_99999999999999999999"}), "255 0 ");
}

/// The names of the DVIs in "in", without their type, in the order of the folder.
std::vector<std::string> folder_order(const scratch_folder& folder) {
  std::vector<std::string> stems;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path("in"))) {
    if (entry.path().extension() == ".dvi") {
      stems.push_back(entry.path().stem());
    }
  }
  return stems;
}

TEST_F(InputOrder, DisorderedFilesStayInTheOrderOfTheFolder) {
  for (const int index : {4, 0, 7, 2, 9, 5}) {
    folder.write("in/net_split_" + std::to_string(index) + ".dvi", "");
  }
  const std::string first = folder_order(folder)[0];
  expect_tool(pack, 255,
              "error: files in input folder are disordered.\n"
              "error: can't find file " +
                  first +
                  ".h. please check filename format between .dvi and "
                  ".h files.\n"
                  "error: can't find matched .dvi files and .h files\n");
  EXPECT_NE(first, "net_split_0") << "this folder cannot tell";
  EXPECT_FALSE(folder.exists("net.bin"));
}

TEST_F(InputOrder, ManyEqualIndicesAreInTheOrderThatTheStandardSortGives) {
  for (int i = 0; i < 100; ++i) {
    const std::string name = "net" + std::to_string(i);
    put_dag(name, dag_lines(name));
  }
  const std::vector<std::string> names = folder_order(folder);
  std::vector<std::pair<int, std::string>> sorted;
  for (const std::string& name : names) {
    sorted.emplace_back(0, name);
  }
  std::sort(sorted.begin(), sorted.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  EXPECT_NE(sorted[0].second, names[0]) << "a stable sort would pass";
  std::string package = package_header(100);
  for (unsigned i = 0; i < 100; ++i) {
    package += dvi_record({.vproc_id = static_cast<std::uint8_t>(i), .dag_name = sorted[i].second});
  }
  tool(pack);
  expect_bytes(folder.read("net.bin"), package);
}

TEST_F(InputOrder, KeepsTheLowByteOfIndexAndPosition) {
  for (int index = 0; index <= 300; ++index) {
    put_dag("net_split_" + std::to_string(index), "");
  }
  EXPECT_EQ(tool(pack).status, 0);
  const std::string package = folder.read("net.bin");
  const auto record = [&](std::size_t position) {
    return package.substr(12 + 156 * position, 156);
  };
  expect_bytes(record(255), dvi_record({.dvi_id = 255, .vproc_id = 255}));
  expect_bytes(record(256), dvi_record({.dvi_id = 0, .vproc_id = 0}));
  expect_bytes(record(300), dvi_record({.dvi_id = 44, .vproc_id = 44}));
}

constexpr const char* no_name = "/* HMB_input x */\n";

/// Packs four DVIs with vproc records, checks that the run fails before it writes, and returns its
/// output.
std::string refusal(const std::vector<std::string>& headers) {
  const scratch_folder folder;
  for (std::size_t i = 0; i < headers.size(); ++i) {
    put_dag(folder, "net_split_" + std::to_string(i), headers[i]);
  }
  const run_result run = run_tool(pack_with_vproc, folder.path());
  EXPECT_EQ(run.status, 255);
  EXPECT_FALSE(folder.exists("net.bin"));
  return run.output;
}

using DuplicateDagNames = tool_test;

TEST_F(DuplicateDagNames, NameTheLaterAndTheEarlierHeader) {
  EXPECT_EQ(refusal({dag_lines("same"), dag_lines("b"), dag_lines("same"), dag_lines("b")}),
            "error: detection duplicate DAG NAME between file in/_net_split_2.h and file "
            "in/_net_split_0.h\n");
}

TEST_F(DuplicateDagNames, EndTheRunAtTheFirstOneWhateverItsLength) {
  const std::string line = "_DAG_NAME " + std::string(500, 'n') + "\n";
  EXPECT_EQ(refusal({line, line, std::string(1024, 'x')}),
            "error: detection duplicate DAG NAME between file in/_net_split_1.h and file "
            "in/_net_split_0.h\n");
}

TEST_F(DuplicateDagNames, NameTheWrongEarlierHeaderWhenOneHasNoName) {
  EXPECT_EQ(refusal({no_name, dag_lines("same"), dag_lines("same")}),
            "error: detection duplicate DAG NAME between file in/_net_split_2.h and file "
            "in/_net_split_0.h\n");
  EXPECT_EQ(refusal({dag_lines("a"), no_name, no_name, dag_lines("b"), dag_lines("b")}),
            "error: detection duplicate DAG NAME between file in/_net_split_4.h and file "
            "in/_net_split_1.h\n");
}

TEST_F(DuplicateDagNames, AreFoundBeforeTheHeadersAreCounted) {
  for (const char* name : {"in/a_split_0", "in/b_split_1", "in/c_split_2"}) {
    folder.write(std::string(name) + ".dvi", "");
  }
  folder.write("in/a_split_0.h", dag_lines("same"));
  folder.write("in/b_split_1.h", dag_lines("same"));
  expect_tool(pack_with_vproc, 255,
              "error: can't find file c_split_2.h. please check filename format between .dvi and "
              ".h files.\n"
              "error: detection duplicate DAG NAME between file in/b_split_1.h and file "
              "in/a_split_0.h\n");
}

TEST_F(DuplicateDagNames, AreComparedWholeAndInTheirCase) {
  put_dag("net_split_0", dag_lines("net"));
  put_dag("net_split_1", dag_lines("Net"));
  put_dag("net_split_2", dag_lines("net2"));
  put_dag("net_split_3", "");
  put_dag("net_split_4", "");
  put_dag("net_split_5", dag_lines("first") + dag_lines("net"));
  folder.write("in/net_split_6.dvi", "");
  folder.make_folder("in/_net_split_6.h");
  EXPECT_EQ(tool(pack_with_vproc).status, 0);
}

TEST_F(DuplicateDagNames, ArePackedWithoutVproc) {
  put_dag("net_split_0", dag_lines("same") + "/* HMB_input a */\n/* HMB_output b */\n");
  put_dag("net_split_1", dag_lines("same") + "/* HMB_input a */\n/* HMB_output b */\n");
  expect_tool(pack, 0, saved("4644"));
}

}  // namespace
}  // namespace morvane::test
