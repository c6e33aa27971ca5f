#include "discovery/input_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "harness/scratch_folder.h"
#include "printed_text.h"

namespace morvane {
namespace {

using test::length_message;
using test::printed_by;
using test::scratch_folder;

using names = std::vector<std::string>;
using indices = std::vector<std::int32_t>;

names names_of(const input_list& files) {
  names found;
  for (const input_entry file : files) {
    found.emplace_back(file.name);
  }
  return found;
}

indices indices_of(const input_list& files) {
  indices found;
  for (const input_entry file : files) {
    found.push_back(file.index);
  }
  return found;
}

/// The DVIs of a folder with these files. Checks their number against the result.
input_list listed(const names& files) {
  const scratch_folder folder;
  for (const std::string& file : files) {
    folder.write(file, "");
  }
  input_list dvis;
  const std::int32_t count = list_input_files(folder.path(), "dvi", dvis);
  EXPECT_EQ(count, static_cast<std::int32_t>(dvis.size()));
  return dvis;
}

TEST(ListInputFiles, SortsTheDvisByIndex) {
  const auto dvis = listed({"dag_split_2.dvi", "dag_split_0.dvi", "dag_split_1.dvi"});
  EXPECT_EQ(names_of(dvis), (names{"dag_split_0.dvi", "dag_split_1.dvi", "dag_split_2.dvi"}));
  EXPECT_EQ(indices_of(dvis), (indices{0, 1, 2}));
}

TEST(ListInputFiles, TakesTheTypeInAnyCaseAndNoOther) {
  names found = names_of(listed({"a.dvi", "b.DVI", "c.Dvi", "d.dvi.h", "dvi", "e.dvix", "f.h"}));
  std::ranges::sort(found);
  EXPECT_EQ(found, (names{"a.dvi", "b.DVI", "c.Dvi"}));
}

TEST(ListInputFiles, TakesAFolderForADvi) {
  const scratch_folder folder;
  folder.make_folder("x.dvi");
  input_list dvis;
  EXPECT_EQ(list_input_files(folder.path(), "dvi", dvis), 1);
  EXPECT_EQ(names_of(dvis), names{"x.dvi"});
}

TEST(ListInputFiles, FindsNothingInAMissingOrEmptyFolder) {
  const scratch_folder folder;
  input_list dvis;
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(list_input_files(folder.path("missing"), "dvi", dvis), 0);
              EXPECT_EQ(list_input_files(folder.path(), "dvi", dvis), 0);
            }),
            "");
  EXPECT_TRUE(dvis.empty());
}

TEST(ListInputFiles, LeavesOutABadlyNamedDvi) {
  EXPECT_EQ(printed_by([] {
              EXPECT_EQ(names_of(listed({"a.dvi", "b_split_.dvi"})), names{"a.dvi"});
            }),
            "error: filename format is incorrect, can't find file index for file b_split_.dvi\n");
}

TEST(ListInputFiles, LeavesOutANameThatIsTooLong) {
  const std::string longest = std::string(123, 'n').append(".dvi");
  const std::string too_long = std::string(124, 'n').append(".dvi");
  EXPECT_EQ(printed_by([&] {
              EXPECT_EQ(names_of(listed({longest, too_long})), names{longest});
            }),
            length_message("FILENAME", too_long));
}

TEST(ListInputFiles, AcceptsIndicesByTheGreatestAlone) {
  EXPECT_EQ(indices_of(listed({"a.dvi", "b.dvi", "c.dvi"})), (indices{0, 0, 0}));
  EXPECT_EQ(indices_of(listed({"a_split_0.dvi"})), indices{0});
  EXPECT_EQ(indices_of(listed({"y_split_2.dvi", "dag_split_0.dvi", "x_split_2.dvi"})),
            (indices{0, 2, 2}));
  EXPECT_EQ(indices_of(listed({"a_split_1.dvi", "b_split_1.dvi"})), (indices{1, 1}));
  EXPECT_EQ(
      indices_of(listed({"a_split_3.dvi", "b_split_3.dvi", "c_split_3.dvi", "d_split_3.dvi"})),
      (indices{3, 3, 3, 3}));
}

TEST(ListInputFiles, AcceptsNegativeIndicesAndSortsThemFirst) {
  // Both numbers are too large for 32 bits: the low 32 bits count.
  EXPECT_EQ(indices_of(listed({"a.dvi", "b_split_4294967290.dvi", "c_split_4294967295.dvi"})),
            (indices{-6, -1, 0}));
}

void expect_disordered(const names& files) {
  const scratch_folder folder;
  for (const std::string& file : files) {
    folder.write(file, "");
  }
  input_list dvis;
  EXPECT_EQ(printed_by([&] { EXPECT_EQ(list_input_files(folder.path(), "dvi", dvis), 0); }),
            "error: files in input folder are disordered.\n");
  EXPECT_EQ(dvis.size(), files.size());
}

TEST(ListInputFiles, RefusesIndicesWhoseGreatestDoesNotSuitTheirNumber) {
  expect_disordered({"dag_split_1.dvi"});
  expect_disordered({"net_split_2.dvi"});
  expect_disordered({"a_split_0.dvi", "b_split_1.dvi", "c_split_3.dvi"});
  expect_disordered({"a_split_0.dvi", "b_split_1.dvi", "c.dvi"});
  expect_disordered({"a_split_2147483647.dvi"});
}

TEST(ListInputFiles, DoesNotCountADviThatItLeftOutInTheOrderCheck) {
  EXPECT_EQ(printed_by([] {
              EXPECT_EQ(indices_of(listed({"a_split_0.dvi", "b_split_1.dvi", "c_split_x.dvi"})),
                        (indices{0, 1}));
            }),
            "error: filename format is incorrect, can't find file index for file c_split_x.dvi\n");
}

/// The headers of these DVIs in a folder with these files.
names paired(const names& files, const input_list& dvis) {
  const scratch_folder folder;
  for (const std::string& file : files) {
    folder.write(file, "");
  }
  input_list headers;
  const std::int32_t count = pair_header_files(folder.path(), dvis, headers);
  EXPECT_EQ(count, static_cast<std::int32_t>(headers.size()));
  for (std::size_t i = 0; i < headers.size(); ++i) {
    EXPECT_EQ(headers[i].index, dvis[i].index);
  }
  return names_of(headers);
}

TEST(PairHeaderFiles, FindsTheHeaderOfEveryDviInItsOrder) {
  EXPECT_EQ(paired({"a.h", "b.h", "c.h"}, {{.name = "b.DVI", .index = 3}, {.name = "a.dvi"}}),
            (names{"b.h", "a.h"}));
}

TEST(PairHeaderFiles, PrefersTheUnderscoreWhenEveryDviHasSuchAHeader) {
  EXPECT_EQ(paired({"_a.h", "a.h"}, {{.name = "a.dvi"}}), names{"_a.h"});
  EXPECT_EQ(paired({"_a.h", "a.h", "b.h", "_b.h"}, {{.name = "a.dvi"}, {.name = "b.dvi"}}),
            (names{"_a.h", "_b.h"}));
}

TEST(PairHeaderFiles, TakesNoUnderscoreAtAllWhenOneIsMissing) {
  EXPECT_EQ(paired({"_a.h", "a.h", "b.h"}, {{.name = "a.dvi"}, {.name = "b.dvi"}}),
            (names{"a.h", "b.h"}));
  EXPECT_EQ(
      printed_by([] {
        EXPECT_EQ(paired({"_a.h", "b.h"}, {{.name = "a.dvi"}, {.name = "b.dvi"}}), names{});
      }),
      "error: can't find file a.h. please check filename format between .dvi and .h files.\n");
}

TEST(PairHeaderFiles, StopsAtTheFirstMissingHeader) {
  EXPECT_EQ(
      printed_by([] {
        EXPECT_EQ(paired({"a.h", "c.h"}, {{.name = "a.dvi"}, {.name = "b.dvi"}, {.name = "c.dvi"}}),
                  names{"a.h"});
      }),
      "error: can't find file b.h. please check filename format between .dvi and .h files.\n");
}

TEST(PairHeaderFiles, TellsLowerCaseFromUpperCase) {
  EXPECT_EQ(
      printed_by([] { EXPECT_EQ(paired({"a.h"}, {{.name = "A.dvi"}}), names{}); }),
      "error: can't find file A.h. please check filename format between .dvi and .h files.\n");
  EXPECT_EQ(
      printed_by([] { EXPECT_EQ(paired({"a.H"}, {{.name = "a.dvi"}}), names{}); }),
      "error: can't find file a.h. please check filename format between .dvi and .h files.\n");
}

TEST(PairHeaderFiles, CutsTheLastExtensionOnly) {
  EXPECT_EQ(paired({"a.b.h"}, {{.name = "a.b.dvi"}}), names{"a.b.h"});
  EXPECT_EQ(paired({".h"}, {{.name = ".dvi"}}), names{".h"});
}

TEST(PairHeaderFiles, TakesAFolderForAHeader) {
  const scratch_folder folder;
  folder.make_folder("_a.h");
  input_list headers;
  EXPECT_EQ(pair_header_files(folder.path(), {{.name = "a.dvi"}}, headers), 1);
}

TEST(PairHeaderFiles, MissesEveryHeaderOfAMissingFolder) {
  input_list headers;
  EXPECT_EQ(
      printed_by(
          [&] { EXPECT_EQ(pair_header_files("missing folder", {{.name = "a.dvi"}}, headers), 0); }),
      "error: can't find file a.h. please check filename format between .dvi and .h files.\n");
}

TEST(PairHeaderFiles, FindsNothingForNoDvis) {
  EXPECT_EQ(printed_by([] { EXPECT_EQ(paired({"a.h"}, {}), names{}); }), "");
}

}  // namespace
}  // namespace morvane
