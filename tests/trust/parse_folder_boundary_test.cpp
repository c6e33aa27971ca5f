// For any package, nothing outside the parse folder is created, changed or removed.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>
#include <sstream>

#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "trust/sample_package.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

/// Every file and folder outside the parse folder, with attributes that show a change.
std::map<std::string, std::string> surroundings(const scratch_folder& scratch) {
  std::map<std::string, std::string> found;
  auto entry = fs::recursive_directory_iterator(scratch.path());
  for (; entry != fs::recursive_directory_iterator(); ++entry) {
    const std::string path = fs::relative(entry->path(), scratch.path());
    struct stat status {};
    ::lstat(entry->path().c_str(), &status);
    if (path == "work/out/parse") {
      entry.disable_recursion_pending();
      found[path] = "the parse folder";
      continue;
    }
    std::ostringstream state;
    state << status.st_ino << ' ' << status.st_mode << ' ' << status.st_mtim.tv_sec << '.'
          << status.st_mtim.tv_nsec << ' ' << (entry->is_regular_file() ? scratch.read(path) : "");
    found[path] = state.str();
  }
  return found;
}

/// Files that an unchecked image or header name would reach, and the folders on the way.
void place_sentinels(const scratch_folder& scratch) {
  for (const char* folder : {"", "work/", "work/out/"}) {
    for (const char* name : {"victim.dvi", "victim.h", "_victim.h", "_.h", ".dvi", "_...h"}) {
      scratch.write(std::string(folder) + name, "untouched");
    }
  }
  for (const char* folder : {"_", "_x", "x", "_..", "_."}) {
    scratch.make_folder("work/out/parse/" + std::string(folder));
  }
}

std::string package_with(std::string_view dag_name, std::string_view other_name) {
  constexpr vproc_desc one_of_each{
      .variable_num = 1, .smb_num = 1, .vproc_records_size = 136 + 132};
  return header(1) + bytes(dvi(dag_name, 5, 1, 1)) + bytes(port(other_name, other_name)) +
         bytes(port(other_name, other_name)) + "image" + bytes(one_of_each) +
         bytes(variable(other_name)) + bytes(smb(other_name));
}

void expect_surroundings_unchanged(std::string_view dag_name, std::string_view other_name) {
  SCOPED_TRACE(dag_name);
  const scratch_folder scratch;
  place_sentinels(scratch);
  scratch.write("work/a.bin", package_with(dag_name, other_name));
  const auto before = surroundings(scratch);
  const run_result run = run_tool({"-f", "a.bin", "-p", "out", "-v", "-c"}, scratch.path("work"));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(surroundings(scratch), before);
}

TEST(OutsideTheParseFolder, NamesWithASlashTouchNothing) {
  for (const char* name :
       {"/", "x/y", "x/", "../victim", "../../victim", "../../../victim", "x/../../victim",
        "x/../../../victim", "/../victim", "/../../victim", "/../../../victim", "./../victim",
        "../parse/../victim", "//////victim"}) {
    expect_surroundings_unchanged(name, name);
  }
}

TEST(OutsideTheParseFolder, NamesOfDotsTouchNothing) {
  for (const char* name : {".", "..", "...", "....", "..victim"}) {
    expect_surroundings_unchanged(name, name);
  }
}

TEST(OutsideTheParseFolder, AnEmptyNameTouchesNothing) {
  expect_surroundings_unchanged("", "");
  expect_surroundings_unchanged("", "../victim");
  expect_surroundings_unchanged("../victim", "");
}

TEST(OutsideTheParseFolder, NamesWithoutANulTouchNothing) {
  expect_surroundings_unchanged(std::string(128, 'n'), std::string(512, 'n'));
  std::string climb;
  while (climb.size() < 120) {
    climb += "../";
  }
  expect_surroundings_unchanged(climb + "victimxx", climb + "victimxx");
}

TEST(OutsideTheParseFolder, AnAbsolutePathTouchesNothing) {
  const scratch_folder elsewhere;
  elsewhere.write("victim.dvi", "untouched");
  elsewhere.write("victim.h", "untouched");
  const auto before = surroundings(elsewhere);
  expect_surroundings_unchanged(elsewhere.path("victim"), elsewhere.path("victim"));
  expect_surroundings_unchanged(elsewhere.path("victim").insert(0, "//"), elsewhere.path("victim"));
  EXPECT_EQ(surroundings(elsewhere), before);
}

TEST(OutsideTheParseFolder, SymbolicLinksInItAreNotFollowed) {
  const scratch_folder scratch;
  place_sentinels(scratch);
  scratch.write("work/a.bin", package_with("net", "port"));
  fs::create_symlink("../victim.dvi", scratch.path("work/out/parse/net.dvi"));
  fs::create_symlink("../victim.h", scratch.path("work/out/parse/_net.h"));
  const auto before = surroundings(scratch);
  const run_result run = run_tool({"-f", "a.bin", "-p", "out", "-v", "-c"}, scratch.path("work"));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(surroundings(scratch), before);
  EXPECT_TRUE(fs::is_symlink(scratch.path("work/out/parse/net.dvi")));
  EXPECT_TRUE(fs::is_regular_file(scratch.path("work/out/parse/_net.h")));
}

TEST(OutsideTheParseFolder, AMissingParseDirectoryIsNotMade) {
  const scratch_folder scratch;
  scratch.write("work/a.bin", sample_package());
  const auto before = surroundings(scratch);
  const run_result run =
      run_tool({"-f", "a.bin", "-p", "missing/folder", "-v", "-c"}, scratch.path("work"));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(surroundings(scratch), before);
}

}  // namespace
}  // namespace morvane::test
