// With any bytes as headers and any names in the folder, a pack run ends with 0 or 255 and a
// reason.

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>

#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "harness/test_size.h"

namespace morvane::test {
namespace {

using random_numbers = std::mt19937_64;

std::size_t below(random_numbers& random, std::size_t limit) {
  return random() % limit;
}

/// Words of the compiler's headers among random bytes, in lines of any length.
std::string random_header(random_numbers& random) {
  constexpr std::array<std::string_view, 24> words{
      "#define ",    "n_DAG_NAME ", "n\n",
      "_DAG_NAME",   "_image_size", "_image_start",
      "HMB_input",   "HMB_output",  "SMB_input",
      "$",           "_W ",         "_hflip",
      "_bit_offset", "_expoffset ", "_qubrix_demangled_name",
      "_boffset ",   "_bsize ",     "_vbase_byte_offset ",
      "\n",          "\r\n",        " ",
      "\n\n",        "1",           "-99999999999999999999"};
  std::string text = below(random, 2) == 0 ? "#define n_DAG_NAME n\n" : "";
  for (std::size_t pieces = below(random, 120); pieces > 0; --pieces) {
    const std::size_t kind = below(random, 100);
    if (kind < 90) {
      text += words[below(random, words.size())];
    } else if (kind < 98) {
      text += static_cast<char>(below(random, 256));
    } else {
      text += std::string(500 + below(random, 600), static_cast<char>(below(random, 256)));
    }
  }
  return text;
}

/// A file name that the system accepts: of a DVI, of a header, or of any bytes.
std::string random_name(random_numbers& random) {
  constexpr std::array<std::string_view, 12> words{"_",    "a",    "_split_", "0",    "1", "2",
                                                   ".dvi", ".DVI", ".h",      ".dvi", ".", "n"};
  std::string name;
  for (std::size_t pieces = 1 + below(random, 5); pieces > 0; --pieces) {
    if (below(random, 12) == 0) {
      name += static_cast<char>(1 + below(random, 255));
    } else if (below(random, 40) == 0) {
      name += std::string(124, 'l');
    } else {
      name += words[below(random, words.size())];
    }
  }
  name = name.substr(0, 250);
  return name == "." || name == ".." || name.find('/') != std::string::npos ? "x.dvi" : name;
}

/// Headers with and without an underscore for many of the names, so that many pairings succeed.
void fill_folder(const scratch_folder& scratch, random_numbers& random) {
  const std::string mark = below(random, 2) == 0 ? "_" : "";
  for (std::size_t files = 1 + below(random, 3); files > 0; --files) {
    const std::string name = below(random, 2) == 0 ? "a_split_" + std::to_string(files - 1) + ".dvi"
                                                   : random_name(random);
    scratch.write("in/" + name, std::string(below(random, 64), 'i'));
    const std::string stem = name.substr(0, name.rfind('.'));
    if (below(random, 8) != 0) {
      scratch.write("in/" + mark + stem + ".h", random_header(random));
    }
  }
}

TEST(AnyFolder, APackRunEndsWithItsMessageInTime) {
  random_numbers random(test_seed());
  const unsigned cases = cases_to_run(600, 60);
  std::set<int> seen;
  unsigned packed = 0;
  for (unsigned i = 0; i < cases; ++i) {
    const scratch_folder scratch(fast_folder());
    fill_folder(scratch, random);
    const run_result run = run_program(
        tool_words({"-d", "in", "-f", "a.bin", "-c"}, {"timeout", "60"}), scratch.path());
    ASSERT_TRUE(run.status == 0 || run.status == 255) << "case " << i << ": " << run.status << "\n"
                                                      << run.diagnostics;
    const bool saved = run.output.find("Save to file a.bin with file size ") != std::string::npos;
    ASSERT_EQ(saved, run.status == 0) << "case " << i << "\n" << run.output;
    const bool failed = run.output.find("error: ") != std::string::npos ||
                        run.output.find("can't open file ") != std::string::npos;
    ASSERT_TRUE(saved || failed) << "case " << i << "\n" << run.output;
    packed += saved ? 1 : 0;
    seen.insert(run.status);
  }
  std::printf("%u of %u folders packed\n", packed, cases);
  EXPECT_EQ(seen, (std::set<int>{0, 255})) << "the folders are all alike";
}

}  // namespace
}  // namespace morvane::test
