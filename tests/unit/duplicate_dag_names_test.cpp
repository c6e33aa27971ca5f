#include "discovery/duplicate_dag_names.h"

#include <gtest/gtest.h>

#include "harness/scratch_folder.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::printed_by;
using test::scratch_folder;

/// Checks headers A.h, B.h, ... with these texts. Returns the printed text, with DIR for the
/// folder.
std::string printed_for(const std::vector<std::string>& headers, int status) {
  const scratch_folder folder;
  input_list entries;
  for (const std::string& header : headers) {
    const std::string name = std::string(1, static_cast<char>('A' + entries.size())) + ".h";
    folder.write(name, header);
    entries.add({.name = name});
  }
  const std::string printed =
      printed_by([&] { EXPECT_EQ(check_duplicate_dag_names(folder.path(), entries), status); });
  return test::with_dir(printed, folder.path());
}

TEST(CheckDuplicateDagNames, AcceptsDifferentNames) {
  EXPECT_EQ(printed_for({"_DAG_NAME a\n", "_DAG_NAME b\n", "_DAG_NAME A\n"}, 0), "");
  EXPECT_EQ(printed_for({}, 0), "");
}

TEST(CheckDuplicateDagNames, NamesTheHeaderThatRepeatsANameAndTheEarlierOne) {
  EXPECT_EQ(printed_for({"_DAG_NAME a\n", "_DAG_NAME b\n", "_DAG_NAME a\n"}, 1),
            "error: detection duplicate DAG NAME between file DIR/C.h and file DIR/A.h\n");
  EXPECT_EQ(printed_for({"_DAG_NAME a\n", "_DAG_NAME b\n", "_DAG_NAME b\n"}, 1),
            "error: detection duplicate DAG NAME between file DIR/C.h and file DIR/B.h\n");
}

TEST(CheckDuplicateDagNames, StopsAtTheFirstHeaderThatRepeatsAName) {
  EXPECT_EQ(printed_for({"_DAG_NAME a\n", "_DAG_NAME a\n", "_DAG_NAME a\n"}, 1),
            "error: detection duplicate DAG NAME between file DIR/B.h and file DIR/A.h\n");
  const std::string would_be_reported(1024, 'x');
  EXPECT_EQ(printed_for({"_DAG_NAME a\n", "_DAG_NAME a\n", would_be_reported}, 1),
            "error: detection duplicate DAG NAME between file DIR/B.h and file DIR/A.h\n");
}

TEST(CheckDuplicateDagNames, NamesTheWrongEarlierFileAfterAHeaderWithoutName) {
  EXPECT_EQ(printed_for({"no name\n", "_DAG_NAME a\n", "_DAG_NAME a\n"}, 1),
            "error: detection duplicate DAG NAME between file DIR/C.h and file DIR/A.h\n");
}

TEST(CheckDuplicateDagNames, LooksAtTheFirstNameOfAHeader) {
  EXPECT_EQ(printed_for({"\n#define a_DAG_NAME\n_DAG_NAME a\n_DAG_NAME b\n", "_DAG_NAME b\n"}, 0),
            "");
}

TEST(CheckDuplicateDagNames, DoesNotMindTheLengthOfAName) {
  const std::string line = "_DAG_NAME " + std::string(500, 'n') + "\n";
  EXPECT_EQ(printed_for({line, line}, 1),
            "error: detection duplicate DAG NAME between file DIR/B.h and file DIR/A.h\n");
}

TEST(CheckDuplicateDagNames, ReportsOverLongLinesBeforeTheNameOnly) {
  const std::string line(1024, 'y');
  EXPECT_EQ(printed_for({line + "\n_DAG_NAME a\n" + line + "\n"}, 0),
            length_message("LINE_LEN", line));
}

TEST(CheckDuplicateDagNames, PassesOverHeadersThatCannotBeRead) {
  const scratch_folder folder;
  folder.make_folder("folder.h");
  folder.write("a.h", "_DAG_NAME a\n");
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(check_duplicate_dag_names(
                            folder.path(),
                            {{.name = "missing.h"}, {.name = "folder.h"}, {.name = "a.h"}}),
                        0);
            }),
            "");
}

}  // namespace
}  // namespace morvane
