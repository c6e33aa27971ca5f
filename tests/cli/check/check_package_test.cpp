// What `morvane check` finds in packages that are not like those of tests/findings/.
#include "cli/check/check_package.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "cli/findings/finding_output.h"
#include "cli/sound_package.h"

namespace morvane::test {
namespace {

using lines = std::vector<std::string>;

lines findings(std::string_view package) {
  const std::span<const char> characters(package);
  lines found;
  cli::check_package(
      {reinterpret_cast<const std::uint8_t*>(characters.data()), characters.size()}, {},
      [&](const cli::finding& one) { found.push_back(finding_line(one, false)); },
      [](std::uint64_t) {});
  return found;
}

TEST(CheckPackage, TakesDagNamesThatAreOddButSafe) {
  for (const char* name : {"...  ", "a b c", ".abcd", "a\\b:c", "\xFF\x80\xC3\xA4", "-rf *"}) {
    EXPECT_EQ(findings(sound_package().replace(0x28, std::strlen(name), name)), lines{}) << name;
  }
}

TEST(CheckPackage, TakesTheLowByteOfAPositionForItsVprocId) {
  std::string package = header(257);
  for (unsigned i = 0; i < 257; ++i) {
    package += bytes(sound_dvi(static_cast<std::uint8_t>(i), std::to_string(i), 0, 1));
  }
  for (unsigned i = 0; i < 257; ++i) {
    package += bytes(sound_port("out", 0)) + image();
  }
  EXPECT_EQ(findings(package), lines{});
}

TEST(CheckPackage, ComparesAnInputWithTheLastOutputOfItsNameInEarlierDvis) {
  const auto package = [](std::uint32_t first, std::uint32_t second) {
    return header(3) + bytes(sound_dvi(0, "a", 0, 1)) + bytes(sound_dvi(1, "b", 0, 1)) +
           bytes(sound_dvi(2, "c", 1, 1)) + bytes(sound_port("x", first)) + image() +
           bytes(sound_port("x", second)) + image() + bytes(sound_port("x", 16)) +
           bytes(sound_port("x", 32)) + image();
  };
  EXPECT_EQ(findings(package(0, 16)), lines{});
  EXPECT_EQ(findings(package(16, 0)),
            lines{":0xad0: warning: input 0 of DVI 2 \"x\" differs from output 0 of DVI 1: "
                  "port_byte_offset is 16, not 0 [port-mismatch]\n"});
}

}  // namespace
}  // namespace morvane::test
