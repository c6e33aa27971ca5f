#include "cli/pack/pack_verification.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>

#include "cli/lint/lint_folder.h"
#include "cli/pack/packed_folder.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

/// A folder of 20 DAGs, what the linter reads in it, and its package.
struct packed_dags {
  packed_dags() {
    for (int i = 0; i < 20; ++i) {
      const std::string dag = std::string("net").append(std::to_string(i));
      const std::string stem = std::string("in/net_split_").append(std::to_string(i));
      folder.write(stem + ".dvi", "image");
      folder.write(stem + ".h", "#define " + dag + "_DAG_NAME \"" + dag + "\"\n#define " + dag +
                                    "_image_size 5\n/* HMB_input a */\n#define " + dag +
                                    "_a_W 3\n");
    }
    cli::lint_folder(
        {.folder = folder.path("in")}, [](const cli::finding&) {}, [](std::size_t, std::size_t) {},
        &parsed);
    EXPECT_TRUE(pack_folder(folder.path("in"), false, folder.path("net.bin")));
  }

  /// The package, compared with the inputs as they are now.
  [[nodiscard]] cli::input_comparison compare() const {
    cli::package_bytes package;
    EXPECT_EQ(package.load(folder.path("net.bin")), 0);
    return compare_with_inputs(package, parsed.inputs, parsed.dvis, false,
                               [](std::uint64_t /*done*/) {});
  }

  scratch_folder folder{};
  cli::parsed_folder parsed{};
};

TEST(PackVerification, FindsAPackageLikeItsInputs) {
  const packed_dags dags;
  EXPECT_TRUE(dags.compare().are_same);
}

TEST(PackVerification, FindsEveryImageThatDiffers) {
  for (const char* image : {"0", "1", "7", "18", "19"}) {
    const packed_dags dags;
    dags.folder.write(std::string("in/net_split_").append(image).append(".dvi"), "imagE");
    EXPECT_FALSE(dags.compare().are_same) << image;
  }
}

TEST(PackVerification, FindsEveryRecordThatDiffers) {
  for (const std::size_t dvi : {0U, 1U, 18U, 19U}) {
    packed_dags dags;
    dags.parsed.dvis[dvi].ports[0] ^= std::byte{1};
    EXPECT_FALSE(dags.compare().are_same) << dvi;
  }
}

TEST(PackVerification, FindsBytesThatAreTooManyOrTooFew) {
  for (const int more : {1, -1}) {
    const packed_dags dags;
    const std::string package = dags.folder.path("net.bin");
    const auto size = static_cast<int>(std::filesystem::file_size(package));
    std::filesystem::resize_file(package, static_cast<std::uintmax_t>(size + more));
    EXPECT_FALSE(dags.compare().are_same) << more;
  }
}

TEST(PackVerification, NamesAnImageThatCannotBeRead) {
  for (const char* image : {"in/net_split_4.dvi", "in/net_split_5.dvi"}) {
    const packed_dags dags;
    std::filesystem::remove(dags.folder.path(image));
    const cli::input_comparison result = dags.compare();
    EXPECT_FALSE(result.are_same);
    EXPECT_EQ(result.path, dags.folder.path(image));
    EXPECT_EQ(result.error, ENOENT);
  }
}

}  // namespace
}  // namespace morvane::test
