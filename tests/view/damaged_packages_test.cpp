// Every truncation and every damaged byte of the sample packages, in a buffer that is exactly as
// long.

#include <gtest/gtest.h>

#include "harness/packages.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "harness/test_size.h"
#include "view/opened_package.h"
#include "view/whole_package.h"

namespace morvane::test {
namespace {

std::string package_of_examples(bool vproc) {
  const scratch_folder scratch;
  std::vector<std::string> arguments{"-d", source_folder() + "/examples/wake_word", "-f",
                                     scratch.path("net.bin")};
  if (vproc) {
    arguments.emplace_back("-c");
  }
  EXPECT_EQ(run_tool(arguments, scratch.path()).status, 0);
  return scratch.read("net.bin");
}

struct tally {
  std::size_t accepted = 0;
  std::size_t refused = 0;
};

/// Reads what is reached: of an accepted package, everything.
void read_opened(const opened_package& opened, tally& sum) {
  if (opened.status == MORVANE_VIEW_OK) {
    EXPECT_EQ(opened.view.sound_dvis, opened.view.dvi_num);
  } else {
    EXPECT_EQ(opened.damage.status, opened.status);
    EXPECT_LE(opened.damage.offset, opened.size);
  }
  ++(opened.status == MORVANE_VIEW_OK ? sum.accepted : sum.refused);
  EXPECT_NO_THROW(read_whole_package(opened.view));
}

std::vector<std::string> sample_packages() {
  return {sample_package(), package_of_examples(false), package_of_examples(true)};
}

TEST(DamagedPackage, CutAnywhereIsRefusedUnlessOnlyTheVprocSectionIsMissing) {
  for (const std::string& package : sample_packages()) {
    const opened_package whole(package);
    ASSERT_EQ(whole.status, MORVANE_VIEW_OK);
    tally sum;
    for (std::size_t size = 0; size < package.size(); ++size) {
      read_opened(opened_package(std::string_view(package).substr(0, size)), sum);
    }
    EXPECT_EQ(sum.accepted, whole.view.vproc_table != 0 ? 1U : 0U);
    EXPECT_EQ(sum.refused + sum.accepted, package.size());
  }
}

TEST(DamagedPackage, WithAnyByteChangedIsReadInsideItsBytes) {
  for (const std::string& package : sample_packages()) {
    const std::size_t step = few_cases() ? 101 : 1;
    opened_package opened(package);
    tally sum;
    for (std::size_t i = 0; i < package.size(); i += step) {
      const std::uint8_t byte = opened.bytes[i];
      for (unsigned kind = 0; kind < 10; ++kind) {
        opened.bytes[i] = static_cast<std::uint8_t>(kind == 0   ? 0x00
                                                    : kind == 1 ? 0xFF
                                                                : byte ^ 1U << (kind - 2));
        opened.open_again();
        read_opened(opened, sum);
      }
      opened.bytes[i] = byte;
    }
    std::printf("%zu damages accepted, as they change no size, and %zu refused\n", sum.accepted,
                sum.refused);
    EXPECT_EQ(sum.accepted + sum.refused, (package.size() + step - 1) / step * 10);
    EXPECT_TRUE(sum.refused > 0 || step > 1);  // few bytes are part of a size
  }
}

TEST(DamagedPackage, FollowedByAnythingIsRefused) {
  for (const std::string& package : sample_packages()) {
    if (opened_package(package).view.vproc_table != 0) {
      EXPECT_EQ(opened_package(package + '\0').status, MORVANE_VIEW_BYTES_LEFT_OVER);
    } else {
      EXPECT_EQ(opened_package(package + '\0').status, MORVANE_VIEW_VPROC_TABLE_CUT);
    }
  }
}

TEST(ViewFilledByHand, IsReadInsideItsBytes) {
  const opened_package opened(sample_package());
  for (const std::size_t wild : {std::size_t{0}, std::size_t{1}, opened.view.size - 1,
                                 opened.view.size, SIZE_MAX - 1079, SIZE_MAX}) {
    morvane_view view = opened.view;
    view.dvi_num = view.sound_dvis = view.sound_vprocs = 0xFFFFFFFF;
    view.vproc_table = wild;
    morvane_view_dvi dvi{};
    morvane_view_first(&view, &dvi);
    dvi = {};
    dvi.position = 0xFFFFFFFD;
    dvi.input_num = dvi.output_num = dvi.variable_num = dvi.smb_num = 0xFFFFFFFF;
    dvi.block = dvi.vproc_block = wild;
    morvane_view_port port{};
    morvane_view_var variable{};
    morvane_view_smb_block smb{};
    morvane_bytes image{};
    for (const std::uint32_t index : {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFEU}) {
      morvane_view_input(&view, &dvi, index, &port);
      morvane_view_output(&view, &dvi, index, &port);
      morvane_view_variable(&view, &dvi, index, &variable);
      morvane_view_smb(&view, &dvi, index, &smb);
    }
    EXPECT_EQ(morvane_view_input(&view, &dvi, 0xFFFFFFFE, &port), MORVANE_VIEW_PORTS_CUT);
    EXPECT_EQ(morvane_view_output(&view, &dvi, 0, &port), MORVANE_VIEW_PORTS_CUT);
    EXPECT_EQ(morvane_view_image(&view, &dvi, &image), MORVANE_VIEW_IMAGE_CUT);
    EXPECT_EQ(morvane_view_variable(&view, &dvi, 0xFFFFFFFE, &variable),
              MORVANE_VIEW_VARIABLES_CUT);
    EXPECT_EQ(morvane_view_smb(&view, &dvi, 0, &smb), MORVANE_VIEW_SMBS_CUT);
    EXPECT_EQ(morvane_view_next(&view, &dvi), MORVANE_VIEW_IMAGE_CUT);
    dvi.input_num = dvi.output_num = dvi.dvi_img_size = 0;
    dvi.block = 0;
    EXPECT_EQ(morvane_view_next(&view, &dvi), MORVANE_VIEW_SMBS_CUT);
    dvi.variable_num = dvi.smb_num = 0;
    dvi.vproc_block = 0;
    EXPECT_EQ(morvane_view_next(&view, &dvi), MORVANE_VIEW_DVI_TABLE_CUT);
  }
}

}  // namespace
}  // namespace morvane::test
