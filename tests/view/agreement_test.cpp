// The view against the tool: packages of generated folders, and of folders that the tool counts
// otherwise than it reads them.

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "driver/options.h"
#include "driver/pack_run.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "harness/silence.h"
#include "harness/test_size.h"
#include "inspect/inspect_package.h"
#include "trust/generated_folder.h"
#include "view/opened_package.h"
#include "view/view_report.h"

namespace morvane::test {
namespace {

using folder = std::map<std::string, std::string>;

std::string pack(const scratch_folder& scratch, const folder& files, bool vproc) {
  const silence silent;
  for (const auto& [name, content] : files) {
    scratch.write("input/" + name, content);
  }
  settings = {.filename = scratch.path("net.bin"), .dir = scratch.path("input"), .vproc = vproc};
  EXPECT_EQ(run_pack(), 0);
  std::filesystem::remove_all(scratch.path("input"));
  return scratch.read("net.bin");
}

/// What the inspection prints, without its two closing lines, and the images that it extracts.
std::string inspection(const scratch_folder& scratch, bool vproc) {
  testing::internal::CaptureStdout();
  inspect_package(scratch.path("net.bin"), scratch.path(), vproc);
  const std::string text = testing::internal::GetCapturedStdout();
  return text.substr(0, text.rfind('\n', text.rfind('\n', text.size() - 2) - 1) + 1);
}

std::string view_report(const morvane_view& view) {
  char* text = nullptr;
  std::size_t size = 0;
  FILE* out = ::open_memstream(&text, &size);
  EXPECT_EQ(print_view_report(out, &view), MORVANE_VIEW_OK);
  std::fclose(out);
  std::string result(text, size);
  std::free(text);
  return result;
}

void expect_images(const scratch_folder& scratch, const morvane_view& view) {
  morvane_view_dvi dvi{};
  morvane_bytes image{};
  for (int status = morvane_view_first(&view, &dvi); status == MORVANE_VIEW_OK;
       status = morvane_view_next(&view, &dvi)) {
    ASSERT_EQ(morvane_view_image(&view, &dvi, &image), MORVANE_VIEW_OK);
    EXPECT_EQ(str(image), scratch.read("parse/" + str(dvi.dag_name) + ".dvi"));
  }
}

TEST(Agreement, ReadsWhatTheInspectionReportsInPackagesOfGeneratedFolders) {
  std::mt19937_64 random(test_seed());
  const unsigned folders = cases_to_run(600, 60);
  const scratch_folder scratch(fast_folder());
  std::size_t dvis = 0;
  std::size_t ports = 0;
  for (unsigned i = 0; i < folders; ++i) {
    std::string bytes(8000, '\0');
    for (char& byte : bytes) {
      byte = static_cast<char>(random());
    }
    const bool vproc = i % 2 == 0;
    choices source{.bytes = bytes};
    const std::string package = pack(scratch, generate_folder(source), vproc);
    const opened_package opened(package);
    ASSERT_EQ(opened.status, MORVANE_VIEW_OK) << "folder " << i;
    EXPECT_EQ(morvane_view_need_vproc(&opened.view) == MORVANE_VIEW_OK, vproc);
    ASSERT_EQ(inspection(scratch, vproc), view_report(opened.view)) << "folder " << i;
    expect_images(scratch, opened.view);
    std::filesystem::remove_all(scratch.path("parse"));
    dvis += opened.view.dvi_num;
    ports += package.size() / 1080;
  }
  std::printf("%zu DVIs, about %zu ports\n", dvis, ports);
}

// A header in which a line brings records that its counts do not tell of.

const std::string dag_name_line = "#define net_DAG_NAME \"net\"\n";
const std::string port_before_name =
    "/* net HMB_input data */\n#define net_data_W 4\n" + dag_name_line;
const std::string line_of_both_kinds = dag_name_line + "/* net HMB_input a HMB_output b */\n";
const std::string variable_and_smb = dag_name_line + "/* $gain SMB_input lut */\n";

folder folder_of(const std::string& header, const std::string& image) {
  return {
      {"net_split_0.dvi", image},
      {"_net_split_0.h", header + "#define net_image_size " + std::to_string(image.size()) + "\n"}};
}

struct disagreement {
  const char* name;
  std::string header;
  std::string image;
  bool vproc;
  int status;
};

/// The first words of an image whose last 1080 bytes look like a vproc of 3 variables and 5 SMBs.
std::string image_like_a_vproc() {
  std::string image(1080, '\0');
  image[0] = 3;
  image[4] = 5;
  image[8] = static_cast<char>((3 * 136 + 5 * 132) & 0xFF);
  image[9] = (3 * 136 + 5 * 132) >> 8;
  return image;
}

TEST(Agreement, ListsThePackagesWhoseCountsAndRecordsDisagree) {
  const std::vector<disagreement> cases = {
      {"a port before the DAG's name", port_before_name, "IMAGE", false,
       MORVANE_VIEW_VPROC_SIZE_DISAGREES},
      {"a port before the DAG's name, with -c", port_before_name, "IMAGE", true,
       MORVANE_VIEW_VPROC_SIZE_DISAGREES},
      {"a line that names both kinds of ports", line_of_both_kinds, "IMAGE", false,
       MORVANE_VIEW_BYTES_LEFT_OVER},
      {"a line that names both kinds of ports, with -c", line_of_both_kinds, "IMAGE", true,
       MORVANE_VIEW_BYTES_LEFT_OVER},
      {"a line of a variable and an SMB, with -c", variable_and_smb, "IMAGE", true,
       MORVANE_VIEW_BYTES_LEFT_OVER},
      {"a port before the DAG's name and an image that looks like a vproc section",
       port_before_name, image_like_a_vproc(), false, MORVANE_VIEW_OK},
  };
  const scratch_folder scratch(fast_folder());
  unsigned refused = 0;
  for (const disagreement& one : cases) {
    const opened_package opened(pack(scratch, folder_of(one.header, one.image), one.vproc));
    std::printf("%s: %s\n", one.name, morvane_view_status_text(opened.status));
    EXPECT_EQ(opened.status, one.status) << one.name;
    refused += opened.status == MORVANE_VIEW_OK ? 0 : 1;
  }
  std::printf("%u of %zu refused\n", refused, cases.size());
}

}  // namespace
}  // namespace morvane::test
