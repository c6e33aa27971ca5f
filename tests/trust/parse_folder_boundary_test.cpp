// For any package, nothing outside the parse folder is created, changed or removed.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <chrono>
#include <map>
#include <sstream>
#include <thread>

#include "harness/packages.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"

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

/// With files that an unchecked image or header name would reach, and the folders on the way.
struct surrounded_folder : scratch_folder {
  surrounded_folder() {
    for (const char* folder : {"", "work/", "work/out/"}) {
      for (const char* name : {"victim.dvi", "victim.h", "_victim.h", "_.h", ".dvi", "_...h"}) {
        write(std::string(folder) + name, "untouched");
      }
    }
    for (const char* folder : {"_", "_x", "x", "_..", "_."}) {
      make_folder("work/out/parse/" + std::string(folder));
    }
  }
};

std::string package_with(std::string_view dag_name, std::string_view other_name) {
  constexpr vproc_desc one_of_each{
      .variable_num = 1, .smb_num = 1, .vproc_records_size = 136 + 132};
  return header(1) + bytes(dvi(dag_name, 5, 1, 1)) + bytes(port(other_name, other_name)) +
         bytes(port(other_name, other_name)) + "image" + bytes(one_of_each) +
         bytes(variable(other_name)) + bytes(smb(other_name));
}

void expect_surroundings_unchanged(std::string_view dag_name, std::string_view other_name) {
  SCOPED_TRACE(dag_name);
  const surrounded_folder scratch;
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

/// The outputs of the package of package_with("net", "port").
const std::vector<std::string> outputs = {"work/out/parse/net.dvi", "work/out/parse/_net.h"};

/// Checks that outputs whose places are taken come out whole, and nothing else changes.
void expect_outputs_replaced(const scratch_folder& scratch) {
  scratch.write("work/a.bin", package_with("net", "port"));
  const auto before = surroundings(scratch);
  const run_result run = run_tool({"-f", "a.bin", "-p", "out", "-v", "-c"}, scratch.path("work"));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(surroundings(scratch), before);
  for (const std::string& output : outputs) {
    ASSERT_TRUE(fs::is_regular_file(fs::symlink_status(scratch.path(output)))) << output;
    EXPECT_EQ(fs::hard_link_count(scratch.path(output)), 1U) << output;
  }
  EXPECT_EQ(scratch.read(outputs[0]), "image");
  EXPECT_TRUE(scratch.read(outputs[1]).starts_with("#define\tnet_DAG_NAME\t\"net\"\n"));
}

TEST(OutsideTheParseFolder, SymbolicLinksInItAreNotFollowed) {
  const surrounded_folder scratch;
  fs::create_symlink("../victim.dvi", scratch.path(outputs[0]));
  fs::create_symlink("../victim.h", scratch.path(outputs[1]));
  expect_outputs_replaced(scratch);
}

TEST(OutsideTheParseFolder, DanglingSymbolicLinksInItCreateNothing) {
  const surrounded_folder scratch;
  fs::create_symlink("../../new.dvi", scratch.path(outputs[0]));
  fs::create_symlink("../../new.h", scratch.path(outputs[1]));
  expect_outputs_replaced(scratch);
}

TEST(OutsideTheParseFolder, HardLinksInItAreNotWrittenTo) {
  const surrounded_folder scratch;
  fs::create_hard_link(scratch.path("work/victim.dvi"), scratch.path(outputs[0]));
  fs::create_hard_link(scratch.path("work/victim.h"), scratch.path(outputs[1]));
  expect_outputs_replaced(scratch);
}

TEST(OutsideTheParseFolder, PipesInItWithAReaderAreNotWrittenTo) {
  const surrounded_folder scratch;
  std::vector<int> readers;
  for (const std::string& output : outputs) {
    ASSERT_EQ(::mkfifo(scratch.path(output).c_str(), 0600), 0);
    readers.push_back(::open(scratch.path(output).c_str(), O_RDONLY | O_NONBLOCK));
  }
  expect_outputs_replaced(scratch);
  for (const int reader : readers) {
    char byte = 0;
    EXPECT_EQ(::read(reader, &byte, 1), 0);
    ::close(reader);
  }
}

TEST(OutsideTheParseFolder, DevicesInItAreNotWrittenTo) {
  const surrounded_folder scratch;
  for (const std::string& output : outputs) {
    // The device that refuses every byte.
    if (::mknod(scratch.path(output).c_str(), S_IFCHR | 0600, makedev(1, 7)) != 0) {
      GTEST_SKIP() << "devices cannot be made here";
    }
  }
  expect_outputs_replaced(scratch);
}

/// The words that start the tool as a user who is not the owner of the machine.
std::vector<std::string> as_ordinary_user(const std::vector<std::string>& arguments) {
  if (::geteuid() == 0) {
    return tool_words(arguments, {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"});
  }
  return tool_words(arguments);
}

class AFolderThatKeepsItsFiles : public testing::Test {
 protected:
  void SetUp() override {
    if (run_program(as_ordinary_user({"--version"}), scratch.path()).status != 1) {
      GTEST_SKIP() << "an ordinary user cannot start the tool here";
    }
    scratch.write("a.bin", package_with("net", "port"));
  }

  /// Inspects a package as a user who can read the parse folder, and write to its files only.
  [[nodiscard]] run_result inspect(const std::string& package) const {
    fs::permissions(scratch.path(), fs::perms{0755});
    for (const auto& entry : fs::directory_iterator(scratch.path("parse"))) {
      if (entry.is_regular_file()) {
        fs::permissions(entry.path(), fs::perms{0666});
      }
    }
    fs::permissions(scratch.path("parse"), fs::perms{0555});
    const run_result run =
        run_program(as_ordinary_user({"-f", package, "-v", "-c"}), scratch.path());
    fs::permissions(scratch.path("parse"), fs::perms{0755});
    EXPECT_EQ(run.status, 1);
    return run;
  }

  scratch_folder scratch;
};

TEST_F(AFolderThatKeepsItsFiles, HasThemEmptiedAndUsed) {
  scratch.write("parse/net.dvi", "an older and longer image");
  scratch.write("parse/_net.h", "an older header");
  const run_result run = inspect("a.bin");
  EXPECT_TRUE(run.output.ends_with(".dvi files are parsed to folder .//parse\n\n"));
  EXPECT_EQ(scratch.read("parse/net.dvi"), "image");
  EXPECT_TRUE(scratch.read("parse/_net.h").starts_with("#define\tnet_DAG_NAME\t\"net\"\n"));
}

TEST_F(AFolderThatKeepsItsFiles, HasNoFileWithAnotherNameWrittenTo) {
  scratch.write("parse/net.dvi", "image of another");
  scratch.write("header", "header of another");
  fs::create_hard_link(scratch.path("parse/net.dvi"), scratch.path("other.dvi"));
  fs::create_symlink("../header", scratch.path("parse/_net.h"));
  fs::permissions(scratch.path("header"), fs::perms{0666});
  const run_result run = inspect("a.bin");
  EXPECT_TRUE(run.output.ends_with("error: fail to save parsed .dvi files to folder .//parse\n\n"));
  EXPECT_NE(run.output.find("can't open file .//parse/_net.h\n"), std::string::npos);
  EXPECT_EQ(scratch.read("other.dvi"), "image of another");
  EXPECT_EQ(scratch.read("header"), "header of another");
}

TEST_F(AFolderThatKeepsItsFiles, DoesNotHaveThePackageEmptied) {
  const std::string package = package_with("net", "port");
  scratch.write("parse/net.dvi", package);
  const run_result run = inspect("parse/net.dvi");
  EXPECT_NE(run.output.find("can't open file .//parse/net.dvi\n"), std::string::npos);
  EXPECT_EQ(scratch.read("parse/net.dvi"), package);
}

/// Writes to a pipe that the tool reads a package from.
void feed(int pipe, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t put = ::write(pipe, bytes.data(), bytes.size());
    ASSERT_GT(put, 0);
    bytes.remove_prefix(static_cast<std::size_t>(put));
  }
}

bool appears(const std::string& path) {
  for (int i = 0; i < 10000 && !fs::exists(path); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return fs::exists(path);
}

/// An inspection of a package that comes through a pipe, so that it can be held up in its middle:
/// the first DVI's image is being written then.
class HeldUpInspection : public testing::Test {
 protected:
  static constexpr std::size_t first_part = std::size_t{512} << 10;

  /// Starts the inspection and waits until it has written the headers' first blocks.
  void start() {
    ASSERT_EQ(::mkfifo(scratch.path("a.bin").c_str(), 0600), 0);
    // A reader and a writer of its own keep the pipe open.
    pipe_ = ::open(scratch.path("a.bin").c_str(), O_RDWR | O_CLOEXEC);
    output_ = ::open(scratch.path("report").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    tool_ = start_program(tool_words({"-f", "a.bin", "-v"}), scratch.path(), output_);
    feed(pipe_, std::string_view(package).substr(0, first_part));
    ASSERT_TRUE(appears(scratch.path("parse/first.dvi")));
  }

  /// Feeds the rest and waits for the end.
  int finish() {
    feed(pipe_, std::string_view(package).substr(first_part));
    ::close(pipe_);
    ::close(output_);
    return wait_for(tool_);
  }

  scratch_folder scratch;
  const std::string package = header(2) + bytes(dvi("first", 600 << 10, 0, 0)) +
                              bytes(dvi("second", 600 << 10, 1, 0)) + std::string(600 << 10, 'a') +
                              bytes(port("port", "layer")) + std::string(600 << 10, 'b');

 private:
  int pipe_ = -1;
  int output_ = -1;
  pid_t tool_ = -1;
};

TEST_F(HeldUpInspection, StaysInItsFolderWhenALinkTakesItsPlace) {
  start();
  scratch.write("elsewhere/second.dvi", "kept");
  scratch.write("elsewhere/_second.h", "kept");
  fs::rename(scratch.path("parse"), scratch.path("moved"));
  fs::create_symlink("elsewhere", scratch.path("parse"));
  EXPECT_EQ(finish(), 1);
  EXPECT_EQ(scratch.files("elsewhere"),
            (std::map<std::string, std::string>{{"second.dvi", "kept"}, {"_second.h", "kept"}}));
  EXPECT_EQ(scratch.read("moved/second.dvi"), std::string(600 << 10, 'b'));
  EXPECT_NE(scratch.read("moved/_second.h").find("HMB_input port"), std::string::npos);
}

/// What is in the place of a header after the run has written its first block.
void expect_header_left_alone(const scratch_folder& scratch, const std::string& content) {
  EXPECT_EQ(scratch.read("parse/_second.h"), content);
  const std::string report = scratch.read("report");
  EXPECT_NE(report.find("can't open file .//parse/_second.h\n"), std::string::npos);
  EXPECT_TRUE(report.ends_with(".dvi files are parsed to folder .//parse\n\n"));
}

TEST_F(HeldUpInspection, LeavesAFileAloneThatTookTheNameOfAHeader) {
  start();
  fs::remove(scratch.path("parse/_second.h"));
  scratch.write("parse/_second.h", "somebody's own");
  EXPECT_EQ(finish(), 1);
  expect_header_left_alone(scratch, "somebody's own");
}

TEST_F(HeldUpInspection, LeavesALinkAloneThatTookTheNameOfAHeader) {
  start();
  scratch.write("elsewhere", "kept");
  fs::remove(scratch.path("parse/_second.h"));
  fs::create_symlink("../elsewhere", scratch.path("parse/_second.h"));
  EXPECT_EQ(finish(), 1);
  expect_header_left_alone(scratch, "kept");
}

TEST_F(HeldUpInspection, LeavesAHeaderAloneThatGotAnotherName) {
  start();
  const std::string content = scratch.read("parse/_second.h");
  fs::create_hard_link(scratch.path("parse/_second.h"), scratch.path("other"));
  EXPECT_EQ(finish(), 1);
  expect_header_left_alone(scratch, content);
}

TEST_F(HeldUpInspection, DoesNotMakeADeletedHeaderAgain) {
  start();
  fs::remove(scratch.path("parse/_second.h"));
  EXPECT_EQ(finish(), 1);
  EXPECT_FALSE(scratch.exists("parse/_second.h"));
}

TEST_F(HeldUpInspection, DoesNotHangAtAPipeThatTookTheNameOfAHeader) {
  start();
  fs::remove(scratch.path("parse/_second.h"));
  ASSERT_EQ(::mkfifo(scratch.path("parse/_second.h").c_str(), 0600), 0);
  EXPECT_EQ(finish(), 1);
}

}  // namespace
}  // namespace morvane::test
