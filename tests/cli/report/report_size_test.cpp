// How long the pages of morvane report are, for whatever package.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "cli/outcome.h"
#include "harness/packages.h"
#include "harness/test_size.h"

namespace morvane::test {
namespace {

/// A package, and how much longer its DVIs and ports may make a page.
struct counted_package {
  std::string bytes;
  std::size_t page_bytes;
};

/// How many records of each kind a package has. Each DVI has the same.
struct record_counts {
  std::uint32_t dvis;
  std::uint32_t inputs;
  std::uint32_t outputs;
  std::uint32_t variables;
  std::uint32_t smbs;
};

/// A package in which all names are as long as they can be and all numbers great, so that
/// everything overlaps, differs and has findings.
counted_package extreme(const record_counts& counts, char byte) {
  const std::string name(511, byte);
  const std::string short_name(127, byte);
  const std::string output = bytes(port(name, name));
  std::string input = output;
  std::fill_n(input.begin(), offsetof(port_desc, port_name), '\xFF');
  std::string text = header(counts.dvis);
  std::string blocks;
  std::string vprocs;
  std::string records;
  for (std::uint32_t i = 0; i < counts.dvis; ++i) {
    dvi_desc one = dvi(short_name, 64, counts.inputs, counts.outputs);
    one.dvi_img_vaddr = 0xFFFFF000U - i;
    one.dvi_dag_vaddr = 0x10000000U + (i << 17U);
    text += bytes(one);
    for (std::uint32_t k = 0; k < counts.inputs + counts.outputs; ++k) {
      blocks += k < counts.inputs ? input : output;
    }
    blocks += image();
    vprocs += bytes(
        vproc_desc{counts.variables, counts.smbs, 136 * counts.variables + 132 * counts.smbs});
    for (std::uint32_t k = 0; k < counts.variables; ++k) {
      records += bytes(variable(short_name));
    }
    for (std::uint32_t k = 0; k < counts.smbs; ++k) {
      records += bytes(smb(short_name));
    }
  }
  return {text + blocks + vprocs + records,
          std::size_t{counts.dvis} * 8192 * (1 + counts.inputs + counts.outputs)};
}

/// The page of a package, compared with an older one if that has bytes.
std::string sized_page(const std::string& package, const std::string& old_package = {}) {
  const scratch_folder folder;
  folder.write("net.bin", package);
  folder.write("old.bin", old_package);
  std::vector<std::string> arguments{"report", "net.bin"};
  if (!old_package.empty()) {
    arguments.emplace_back("--against");
    arguments.emplace_back("old.bin");
  }
  const run_result run = run_morvane(arguments, folder.path());
  EXPECT_EQ(run.status, 0) << run.diagnostics;
  EXPECT_TRUE(run.output.ends_with("</html>\n"));
  return run.output;
}

constexpr std::size_t frame_bytes = 65536;

std::size_t count_of(std::string_view page, std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = page.find(text); at != std::string::npos; at = page.find(text, at + 1)) {
    ++count;
  }
  return count;
}

/// The cases to run: behind a slow emulator only the first.
template <std::size_t Size, class Case>
std::span<const Case> chosen(const std::array<Case, Size>& cases, unsigned few) {
  return std::span(cases).first(cases_to_run(Size, few));
}

/// The bytes that names consist of.
std::span<const char> name_bytes() {
  static constexpr std::array all{'"', 'n', '\xFF', '\x01'};
  return chosen(all, 1);
}

void expect_limit(const record_counts& counts, char byte) {
  const counted_package package = extreme(counts, byte);
  const std::string page = sized_page(package.bytes);
  EXPECT_LE(page.size(), frame_bytes + package.page_bytes)
      << int{byte} << ' ' << counts.dvis << ' ' << counts.inputs;
  EXPECT_EQ(count_of(page, "<details class=\"dvi\""), counts.dvis);
  EXPECT_EQ(count_of(page, "<tr><th scope=\"row\"><i class=\"in\">"),
            std::size_t{counts.dvis} * counts.inputs);
}

TEST(ReportSize, HasALimitForEveryNameAndNumberOfPortsAndDvis) {
  constexpr std::array all_counts{record_counts{1, 0, 0, 0, 0},   record_counts{1, 0, 0, 20, 20},
                                  record_counts{5, 0, 0, 20, 20}, record_counts{40, 0, 0, 3, 3},
                                  record_counts{1, 1, 0, 30, 9},  record_counts{1, 50, 50, 9, 9},
                                  record_counts{20, 3, 3, 9, 9},  record_counts{31, 2, 2, 9, 9}};
  for (const char byte : name_bytes()) {
    for (const record_counts& counts : chosen(all_counts, 5)) {
      expect_limit(counts, byte);
    }
  }
}

TEST(ReportSize, HasALimitForManyDvisAndForManyPorts) {
  if (!run_prefix().empty()) {
    GTEST_SKIP() << "takes minutes behind an emulator";
  }
  expect_limit({150, 0, 0, 60, 60}, '"');
  expect_limit({3, 700, 700, 60, 60}, '"');
}

TEST(ReportSize, HasALimitForPackagesThatDifferInEverything) {
  constexpr std::array all_counts{record_counts{1, 0, 0, 0, 0}, record_counts{1, 1, 0, 30, 30},
                                  record_counts{12, 3, 2, 9, 9}, record_counts{40, 1, 1, 9, 9}};
  for (const char byte : name_bytes()) {
    for (const record_counts& counts : chosen(all_counts, 2)) {
      const counted_package package = extreme(counts, byte);
      for (const char old_byte : {byte, 'o'}) {
        const counted_package old_package =
            extreme({counts.dvis + 1, counts.outputs, counts.inputs, counts.smbs, 1}, old_byte);
        EXPECT_LE(sized_page(package.bytes, old_package.bytes).size(),
                  frame_bytes + package.page_bytes + old_package.page_bytes);
      }
      EXPECT_LE(sized_page(package.bytes, header(0)).size(), frame_bytes + package.page_bytes);
    }
  }
  const counted_package bigger = extreme({few_cases() ? 30U : 300U, 1, 1, 1, 1}, 'o');
  EXPECT_LE(sized_page(sound_package(), bigger.bytes).size(),
            frame_bytes + 6 * 8192 + bigger.page_bytes);
}

/// A DVI with four ports that has records with short names.
std::string with_records(std::uint32_t variables, std::uint32_t smbs) {
  std::string package = header(1) + bytes(dvi("net", 0, 0, 4)) + bytes(port("a", "")) +
                        bytes(port("b", "")) + bytes(port("c", "")) + bytes(port("d", "")) +
                        bytes(vproc_desc{variables, smbs, 136 * variables + 132 * smbs});
  for (std::uint32_t i = 0; i < variables; ++i) {
    package += bytes(variable(std::string("v").append(std::to_string(i))));
  }
  for (std::uint32_t i = 0; i < smbs; ++i) {
    package += bytes(smb(std::string("s").append(std::to_string(i))));
  }
  return package;
}

TEST(ReportSize, LeavesOutRecordsThatHaveNoRoomAndSaysHowMany) {
  const std::string page = sized_page(with_records(5000, 3000));
  EXPECT_EQ(count_of(page, "<tr><th scope=\"row\"><bdi>v"), 38U);
  EXPECT_EQ(count_of(page, "<tr><th scope=\"row\"><bdi>s"), 35U);
  EXPECT_NE(page.find("<h4>5,000 variables</h4>\n<table"), std::string::npos);
  EXPECT_NE(page.find("<tr><th scope=\"row\"><bdi>v0</bdi></th><td>"), std::string::npos);
  const std::string begin = "</tbody></table>\n<p class=\"dim\">";
  const std::string end =
      " more are left out here; <code>morvane show --json</code> lists all.</p>\n";
  EXPECT_NE(page.find(begin + "4,962" + end), std::string::npos);
  EXPECT_NE(page.find(begin + "2,965" + end), std::string::npos);
}

TEST(ReportSize, ShowsAllRecordsThatHaveRoom) {
  const std::string page = sized_page(with_records(30, 10));
  EXPECT_EQ(count_of(page, "<tr><th scope=\"row\"><bdi>v"), 30U);
  EXPECT_EQ(count_of(page, "<tr><th scope=\"row\"><bdi>s"), 10U);
  EXPECT_EQ(page.find("left out"), std::string::npos);
}

TEST(ReportSize, LeavesOutFindingsThatHaveNoRoomAndSaysHowMany) {
  std::string package = header(1) + bytes(dvi("net", 0, 100));
  for (int i = 0; i < 100; ++i) {
    package += bytes(port("data\n", "layer"));
  }
  const std::string page = sized_page(package);
  EXPECT_NE(page.find("<summary>100 warnings</summary>"), std::string::npos);
  EXPECT_EQ(count_of(page, "<li><b class=\"warning\">"), 26U);
  EXPECT_NE(page.find("<li>and 74 more, which <code>morvane check --notes</code> tells</li>"),
            std::string::npos);
}

TEST(ReportSize, HasAPlaceForEveryLink) {
  const std::string page = sized_page(extreme({40, 1, 1, 3, 3}, 'n').bytes);
  for (std::size_t at = page.find("href=\"#"); at != std::string::npos;
       at = page.find("href=\"#", at + 1)) {
    const std::size_t begin = at + 7;
    const std::string id = page.substr(begin, page.find('"', begin) - begin);
    EXPECT_NE(page.find(std::string(" id=\"").append(id).append("\"")), std::string::npos) << id;
  }
}

}  // namespace
}  // namespace morvane::test
