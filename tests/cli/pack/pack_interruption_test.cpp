// morvane pack, at a signal that the program around it handles.
#include <gtest/gtest.h>
#include <pthread.h>

#include <csignal>
#include <filesystem>
#include <thread>

#include "cli/pack/pack_command.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

TEST(PackInterruption, EndsWithoutAPackage) {
  constexpr std::uint32_t image_size = 64U << 20U;
  const scratch_folder folder;
  folder.write("in/net.dvi", "");
  std::filesystem::resize_file(folder.path("in/net.dvi"), image_size);
  folder.write("in/net.h", "#define net_DAG_NAME net\n#define net_image_size 67108864\n");
  const auto older = std::signal(SIGTERM, [](int /*signal*/) {});
  std::jthread sender([packing = ::pthread_self()](const std::stop_token& end) {
    while (!end.stop_requested()) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      ::pthread_kill(packing, SIGTERM);
    }
  });
  cli::pack_options options;
  options.folder = folder.path("in");
  options.package = folder.path("net.bin");
  cli::console streams;
  EXPECT_EQ(cli::run_pack(options, streams), cli::status_failed);
  sender.request_stop();
  sender.join();
  std::signal(SIGTERM, older);
  EXPECT_EQ(folder.files().size(), 2U);
}

}  // namespace
}  // namespace morvane::test
