// The order of the folder, the locale, the output of an earlier run and the architecture have no
// effect.

#include <elf.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <random>
#include <sstream>

#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "harness/test_size.h"

namespace morvane::test {
namespace {

using files = std::vector<std::pair<std::string, std::string>>;

std::string header_of(const std::string& dag) {
  std::ostringstream text;
  text << "#define " << dag << "_DAG_NAME \"" << dag << "\"\n"
       << "#define " << dag << "_image_size 4\n"
       << "/* " << dag << " HMB_input data */\n"
       << "#define " << dag << "_data_W 16\n"
       << "/* $gain */\n"
       << "#define gain_bsize 3\n";
  return text.str();
}

/// DVIs with the indices from 0 on. Their names are not in the order of the indices.
files folder_of(const std::vector<std::string>& stems) {
  files made;
  for (std::size_t i = 0; i < stems.size(); ++i) {
    const std::string name = stems[i] + "_split_" + std::to_string(i);
    made.emplace_back(name + ".dvi", "IMG" + std::to_string(i % 10));
    made.emplace_back(std::string("_").append(name).append(".h"),
                      header_of("net_split_" + std::to_string(i)));
  }
  return made;
}

run_result pack(const scratch_folder& scratch) {
  return run_tool({"-d", "in", "-f", "a.bin", "-v", "-c"}, scratch.path());
}

/// The indices of the DAGs in the order of the report's table.
std::vector<std::string> table_order(const std::string& report) {
  constexpr std::string_view label = "\t dag_name: net_split_";
  std::vector<std::string> indices;
  for (std::size_t at = report.find(label); at != std::string::npos;
       at = report.find(label, at + 1)) {
    const std::size_t begin = at + label.size();
    indices.push_back(report.substr(begin, report.find('\n', begin) - begin));
  }
  return indices;
}

TEST(FolderOrder, DoesNotChangeThePackage) {
  const std::vector<std::string> stems{"zeta", "alpha", "mid", "Beta", "0nine", "omega",
                                       "x",    "kappa", "_u",  "tau",  "b",     "y"};
  const std::vector<std::string> expected{"0", "1", "2", "3", "4",  "5",
                                          "6", "7", "8", "9", "10", "11"};
  files filling = folder_of(stems);
  std::string first;
  std::mt19937_64 random(test_seed());
  for (unsigned turn = cases_to_run(40, 8); turn > 0; --turn) {
    const scratch_folder scratch(turn % 2 == 0 ? fast_folder()
                                               : std::filesystem::temp_directory_path());
    for (const auto& [name, content] : filling) {
      scratch.write("in/" + name, content);
    }
    const run_result run = pack(scratch);
    ASSERT_EQ(run.status, 0) << run.output;
    EXPECT_EQ(table_order(run.output), expected);
    const std::string package = scratch.read("a.bin");
    EXPECT_EQ(package, first.empty() ? package : first);
    first = package;
    std::ranges::shuffle(filling, random);
  }
}

/// Packs and inspects in a locale. Returns the printed text and the written files.
std::map<std::string, std::string> pack_in_locale(const std::string& locale,
                                                  const std::string& locales) {
  const scratch_folder scratch;
  for (const char* stem : {"dil_I", "d\xC4\xB0l", "\xC4\xB1\xFF"}) {
    scratch.write(std::string("in/") + stem + (stem[0] == 'd' ? ".DVI" : ".Dvi"), "IMG0");
    scratch.write(std::string("in/") + stem + ".h", header_of(stem));
  }
  scratch.write("in/not_this.DV\xC4\xB0", "a dotted capital is another letter");
  scratch.write("in/nor_this.dv\xC4\xB1", "and so is a small one without a dot");
  const run_result run = run_program(tool_words({"-d", "in", "-f", "a.bin", "-v", "-c"},
                                                {"env", "LC_ALL=" + locale, "LOCPATH=" + locales}),
                                     scratch.path());
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_NE(run.output.find(" dvi_num: 3\n"), std::string::npos) << run.output;
  std::map<std::string, std::string> left = scratch.files("parse");
  EXPECT_EQ(left.size(), 6U);
  // Three equal indices: the package has the order of the folder, so only the length is compared.
  left["output"] = std::to_string(run.output.size());
  return left;
}

TEST(Locale, DoesNotChangeTheOutput) {
  const scratch_folder locales;
  const auto plain = pack_in_locale("C", locales.path());
  EXPECT_EQ(pack_in_locale("C.UTF-8", locales.path()), plain);
}

TEST(Locale, TurkishFoldsNoLettersOfAnExtension) {
  const scratch_folder locales;
  const run_result made = run_program(
      {"localedef", "-c", "-i", "tr_TR", "-f", "UTF-8", locales.path("tr_TR.UTF-8")}, "/");
  if (!locales.exists("tr_TR.UTF-8/LC_CTYPE")) {
    GTEST_SKIP() << "no Turkish locale: Debian's package locales has it. " << made.diagnostics;
  }
  EXPECT_EQ(pack_in_locale("tr_TR.UTF-8", locales.path()), pack_in_locale("C", locales.path()));
}

TEST(SecondRun, GivesTheSameFilesAndReport) {
  const scratch_folder scratch;
  for (const auto& [name, content] : folder_of({"a", "b", "c"})) {
    scratch.write("in/" + name, content);
  }
  const run_result first_run = pack(scratch);
  const auto first = scratch.files();
  const run_result second_run = pack(scratch);
  EXPECT_EQ(first_run.status, 0);
  EXPECT_EQ(second_run.status, 0);
  EXPECT_EQ(second_run.output, first_run.output);
  EXPECT_EQ(scratch.files(), first);
  EXPECT_EQ(first.size(), 6U + 1U + 6U);
}

TEST(Architecture, TheToolIsBuiltForTheOneThatTheTestsRunOn) {
#if defined(__aarch64__)
  constexpr unsigned machine = EM_AARCH64;
#elif defined(__x86_64__)
  constexpr unsigned machine = EM_X86_64;
#else
  GTEST_SKIP() << "an architecture without a promise";
  constexpr unsigned machine = EM_NONE;
#endif
  for (const std::string& path : {tool_path(), library_path()}) {
    std::ifstream file(path, std::ios::binary);
    Elf64_Ehdr elf{};
    file.read(reinterpret_cast<char*>(&elf), sizeof elf);
    EXPECT_EQ(elf.e_machine, machine) << path;
  }
}

}  // namespace
}  // namespace morvane::test
