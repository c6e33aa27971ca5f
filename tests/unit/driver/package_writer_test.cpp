#include "driver/package_writer.h"

#include <gtest/gtest.h>

#include "harness/filled_pipe.h"
#include "harness/scratch_folder.h"
#include "unit/printed_text.h"

namespace morvane {
namespace {

// A pack run writes nothing after a copy that failed.
TEST(PackageWriter, GoesOnWhereItWasBeforeAPipeThatEndsEarly) {
  const test::scratch_folder folder;
  package_writer package{.file = open_to_write(folder.path("package")).handle};
  const auto append = [&](std::string_view text) {
    append_bytes(package, std::as_bytes(std::span(text)));
  };
  // Larger than the buffer, so that its first part is written before its end is read.
  const test::filled_pipe pipe(folder.path("pipe"), std::string(524288, 'i'));
  if (!pipe.filled()) {
    GTEST_SKIP() << "pipes of 524288 bytes cannot be had here";
  }
  append("x");
  EXPECT_EQ(test::printed_by(
                [&] { EXPECT_EQ(read_file_bytes(package, folder.path("pipe"), 524289), -1); }),
            "error: fail to read 524289 bytes from " + folder.path("pipe") + "\n");
  append("y");
  close_package(package);
  EXPECT_EQ(folder.read("package"), "xy");
}

}  // namespace
}  // namespace morvane
