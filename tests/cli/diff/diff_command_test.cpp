// morvane diff, as a user starts it.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"

namespace morvane::test {
namespace {

std::string damage_warning(std::string_view package) {
  std::string warning = "morvane: ";
  warning += package;
  return warning +=
         ": the package is damaged; only what comes before the damage is compared, and morvane "
         "check tells more\n";
}

/// The sound package with the byte 1 of the first image changed.
std::string changed_package() {
  std::string package = sound_package();
  package[0x9b5] = 'X';
  return package;
}

using DiffCommand = morvane_test;

TEST_F(DiffCommand, SaysNothingOfEqualPackages) {
  folder.write("old.bin", sound_package());
  folder.write("new.bin", sound_package());
  expect_morvane({"diff", "old.bin", "new.bin"}, 0, "");
  expect_morvane({"diff", "--quiet", "old.bin", "new.bin"}, 0, "");
  expect_morvane({"diff", "old.bin", "old.bin"}, 0, "");
}

TEST_F(DiffCommand, TellsTheDifferencesAndEndsWithOne) {
  folder.write("old.bin", sound_package());
  folder.write("new.bin", changed_package());
  expect_morvane({"diff", "old.bin", "new.bin"}, 1,
                 "DVI \"first\": image: 64 bytes, 1 differs, the first at 0x1\n");
  expect_morvane({"diff", "-q", "old.bin", "new.bin"}, 1, "");
}

TEST_F(DiffCommand, WritesTheDifferencesAsJson) {
  folder.write("old.bin", header(2) + bytes(dvi("net", 2)) + bytes(dvi("old", 0)) + "ab");
  folder.write("new.bin", header(2) + bytes(dvi("new\xFF", 0)) + bytes(dvi("net", 3)) + "aXc");
  expect_morvane(
      {"diff", "--json", "old.bin", "new.bin"}, 1,
      "{\"same\": false, \"old\": {\"file\": \"old.bin\", \"size\": 326, \"damaged\": false}, "
      "\"new\": {\"file\": \"new.bin\", \"size\": 327, \"damaged\": false}, \"differences\": [\n"
      "  {\"part\": \"dvi\", \"dag_name\": \"net\", \"dag_occurrence\": 1, \"change\": \"moved\", "
      "\"old_position\": 0, \"new_position\": 1},\n"
      "  {\"part\": \"dvi\", \"dag_name\": \"net\", \"dag_occurrence\": 1, \"change\": \"field\", "
      "\"field\": \"dvi_img_size\", \"old\": 2, \"new\": 3},\n"
      "  {\"part\": \"dvi\", \"dag_name\": \"net\", \"dag_occurrence\": 1, \"change\": \"field\", "
      "\"field\": \"dvi_pkg_size\", \"old\": 2, \"new\": 3},\n"
      "  {\"part\": \"image\", \"dag_name\": \"net\", \"dag_occurrence\": 1, \"change\": "
      "\"bytes\", \"old_size\": 2, \"new_size\": 3, \"first_offset\": 1, \"differing_bytes\": "
      "2},\n"
      "  {\"part\": \"dvi\", \"dag_name\": \"old\", \"dag_occurrence\": 1, \"change\": "
      "\"vanished\", \"old_position\": 1},\n"
      "  {\"part\": \"dvi\", \"dag_name\": \"new\\ufffd\", \"dag_occurrence\": 1, "
      "\"change\": \"appeared\", \"new_position\": 0}]}\n");
}

TEST_F(DiffCommand, NamesRecordsInJson) {
  port_desc other = port("data", "");
  other.layer_name[0] = 'x';
  other.W = 17;
  port_desc hidden = port("data", "");
  hidden.port_name[5] = 'x';
  const std::string start = header(1) + bytes(dvi("net", 0, 2)) + bytes(port("data", ""));
  folder.write("old.bin", start + bytes(port("data", "")));
  folder.write("new.bin", start + bytes(other));
  folder.write("hidden.bin", start + bytes(hidden));
  const std::string port_members =
      "  {\"part\": \"input\", \"dag_name\": \"net\", \"dag_occurrence\": 1, \"name\": \"data\", "
      "\"occurrence\": 2, ";
  const std::string sizes =
      "{\"same\": false, \"old\": {\"file\": \"old.bin\", \"size\": 2328, \"damaged\": false}, ";
  expect_morvane({"diff", "--json", "old.bin", "new.bin"}, 1,
                 sizes +
                     "\"new\": {\"file\": \"new.bin\", \"size\": 2328, \"damaged\": false}, "
                     "\"differences\": [\n" +
                     port_members +
                     "\"change\": \"field\", \"field\": \"W\", \"old\": 16, \"new\": 17},\n" +
                     port_members +
                     "\"change\": \"field\", \"field\": \"layer_name\", \"old\": \"\", \"new\": "
                     "\"x\"}]}\n");
  expect_morvane({"diff", "--json", "old.bin", "hidden.bin"}, 1,
                 sizes +
                     "\"new\": {\"file\": \"hidden.bin\", \"size\": 2328, \"damaged\": false}, "
                     "\"differences\": [\n" +
                     port_members + "\"change\": \"after_nul\"}]}\n");
}

TEST_F(DiffCommand, WritesThatPackagesAreTheSameAsJson) {
  folder.write("net.bin", sound_package());
  expect_morvane({"diff", "--json", "net.bin", "net.bin"}, 0,
                 "{\"same\": true, \"old\": {\"file\": \"net.bin\", \"size\": 4772, \"damaged\": "
                 "false}, \"new\": {\"file\": \"net.bin\", \"size\": 4772, \"damaged\": false}, "
                 "\"differences\": []}\n");
}

TEST_F(DiffCommand, ComparesADamagedPackageAsFarAsItCanBeWalked) {
  folder.write("old.bin", sound_package());
  folder.write("cut.bin", changed_package().substr(0, 4771));
  expect_morvane({"diff", "old.bin", "cut.bin"}, 1,
                 "DVI \"first\": image: 64 bytes, 1 differs, the first at 0x1\n"
                 "DVI \"second\": vanished from position 1\n"
                 "package: 4772 -> 4771 bytes, 2 differ, the first at 0x9b5\n",
                 damage_warning("cut.bin"));
  expect_morvane({"diff", "--quiet", "old.bin", "cut.bin"}, 1, "");
}

TEST_F(DiffCommand, DoesNotTakePackagesForTheSameThatDifferBehindTheDamage) {
  folder.write("cut.bin", sound_package() + "x");
  folder.write("other.bin", sound_package() + "y");
  expect_morvane({"diff", "cut.bin", "other.bin"}, 1,
                 "package: 4773 bytes, 1 differs, the first at 0x12a4\n",
                 damage_warning("cut.bin") + damage_warning("other.bin"));
}

TEST_F(DiffCommand, TakesDamagedPackagesForTheSameWhenEveryByteIs) {
  folder.write("cut.bin", sound_package() + "x");
  expect_morvane({"diff", "cut.bin", "cut.bin"}, 0, "",
                 damage_warning("cut.bin") + damage_warning("cut.bin"));
  folder.write("empty.bin", "");
  expect_morvane({"diff", "-q", "empty.bin", "empty.bin"}, 0, "");
  expect_morvane({"diff", "-q", "empty.bin", "cut.bin"}, 1, "");
}

TEST_F(DiffCommand, EndsWithTwoWhenAPackageCannotBeRead) {
  folder.write("net.bin", sound_package());
  expect_morvane({"diff", "missing.bin", "net.bin"}, 2, "",
                 "morvane: missing.bin: No such file or directory\n");
  expect_morvane({"diff", "net.bin"}, 2, "", "morvane: NEW is missing; try morvane diff --help\n");
}

TEST_F(DiffCommand, NeedsLittleMemoryForLargePackages) {
  const std::string package = header(1) + bytes(dvi("net", 64 << 20));
  folder.write("old.bin", package);
  folder.write("new.bin", package);
  folder.write("other.bin", package);
  for (const char* name : {"old.bin", "new.bin", "other.bin"}) {
    std::filesystem::resize_file(folder.path(name), package.size() + (64 << 20));
  }
  std::filesystem::resize_file(folder.path("other.bin"), package.size());
  std::filesystem::resize_file(folder.path("other.bin"), package.size() + (64 << 20) + 1);
  if (run_prefix().empty()) {
    const long max_kib = morvane({"--version"}).peak_kib + 16 * 1024;
    EXPECT_LT(morvane({"diff", "old.bin", "new.bin"}).peak_kib, max_kib);
    EXPECT_LT(morvane({"diff", "old.bin", "other.bin"}).peak_kib, max_kib);
  }
}

}  // namespace
}  // namespace morvane::test
