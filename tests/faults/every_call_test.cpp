// Every system call of a run fails once, or does less than it was asked to. The run then ends as it
// would with a folder, file or disk that behaves so for good.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <sstream>

#include "faults/faulty_run.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> pack = {"-d", "in", "-f", "net.bin", "-c"};
const std::vector<std::string> inspect = {"-f", "net.bin", "-v", "-c"};

/// What a run leaves in its folder and prints.
struct outcome {
  run_result run;
  std::map<std::string, std::string> files;
};

/// A folder with the sample folder in it and its package.
class sample {
 public:
  sample() {
    copy_sample(folder);
    run_tool({"-d", "in", "-f", "sound.bin", "-c"}, folder.path());
  }

  /// A run on an unchanged sample; the package of an earlier run and its parse folder are gone.
  outcome after(const std::vector<std::string>& arguments, const fault& fault) {
    renew();
    const run_result run = run_with(fault, tool_words(arguments), folder.path());
    return {.run = run, .files = folder.files()};
  }

  outcome after(const std::vector<std::string>& arguments) {
    renew();
    const run_result run = run_tool(arguments, folder.path());
    return {.run = run, .files = folder.files()};
  }

  std::map<std::string, unsigned> calls(const std::vector<std::string>& arguments) {
    renew();
    return calls_of(tool_words(arguments), folder.path());
  }

  scratch_folder folder;

 private:
  /// An older package and older outputs are where new ones go, so that every way to replace them
  /// is taken.
  void renew() {
    fs::remove_all(folder.path("parse"));
    fs::copy_file(folder.path("sound.bin"), folder.path("net.bin"),
                  fs::copy_options::overwrite_existing);
    folder.write("parse/wake_word_split_0.dvi", "older");
    folder.write("parse/_wake_word_split_1.h", "older");
    folder.write("parse/other", "other");
  }
};

void expect_no_difference(sample& sample, const std::vector<std::string>& arguments) {
  const outcome expected = sample.after(arguments);
  const auto faults = faults_of({{"open", error_effect(EINTR)},
                                 {"read", error_effect(EINTR)},
                                 {"read", "short"},
                                 {"write", error_effect(EINTR)},
                                 {"write", error_effect(EAGAIN)},
                                 {"write", "short"},
                                 {"truncate", error_effect(EINTR)}},
                                sample.calls(arguments));
  for (const fault& fault : faults) {
    SCOPED_TRACE(fault);
    const outcome actual = sample.after(arguments, fault);
    EXPECT_EQ(actual.run.status, expected.run.status);
    EXPECT_EQ(actual.run.output, expected.run.output);
    EXPECT_EQ(actual.files, expected.files);
  }
  std::printf("%zu runs\n", faults.size());
  EXPECT_GT(faults.size(), 50U);
}

/// Whether a line may be in the output: a sound run prints it, or it is a message.
bool is_allowed(const std::string& line, const std::string& sound_output) {
  constexpr std::array messages{"can't open file ",
                                "error: can't open file ",
                                "error: can't find file ",
                                "error: can't find matched .dvi files and .h files",
                                "error: number of DVI files doesn't match that of Header files.",
                                "error: fail to read ",
                                "error: fail to parse file net.bin",
                                "error: fail to save parsed .dvi files to folder .//parse",
                                "warning: fail to find HMB input info in in/",
                                "warning: fail to find HMB output info in in/",
                                "warning: fail to find vproc self-defined variables in in/",
                                "Save to file net.bin with file size "};
  return ("\n" + sound_output).find("\n" + line + "\n") != std::string::npos ||
         std::ranges::any_of(messages, [&](const char* text) { return line.starts_with(text); });
}

/// Checks a run that lost something: it ends by itself, with a status and messages of its own, and
/// what it does not write stays as it was.
void expect_an_orderly_end(const outcome& actual, const outcome& sound,
                           const std::vector<int>& statuses) {
  EXPECT_TRUE(std::ranges::count(statuses, actual.run.status) == 1) << actual.run.status;
  std::istringstream lines(actual.run.output);
  for (std::string line; std::getline(lines, line);) {
    // A record that could not be read is reported as zeros, and so is what follows it.
    const bool is_report = line.find("_id: ") != std::string::npos || line.starts_with("version ");
    EXPECT_TRUE(is_report || is_allowed(line, sound.run.output)) << line;
  }
  for (const auto& [name, content] : sound.files) {
    if (name.starts_with("in/") || name == "sound.bin" || name == "parse/other") {
      EXPECT_EQ(actual.files.at(name), content) << name;
    }
  }
  for (const auto& [name, content] : actual.files) {
    EXPECT_TRUE(sound.files.contains(name) || name.starts_with("parse/")) << name;
  }
}

void expect_orderly_ends(sample& sample, const std::vector<std::string>& arguments,
                         const std::vector<int>& statuses) {
  const outcome sound = sample.after(arguments);
  const auto calls = sample.calls(arguments);
  const std::vector<call_error> errors{
      {"open", EMFILE},    {"open", EACCES},  {"open", EIO},     {"open", ENOSPC},
      {"read", EIO},       {"write", ENOSPC}, {"write", EIO},    {"stat", EIO},
      {"opendir", EMFILE}, {"readdir", EIO},  {"mkdir", ENOSPC}, {"mkdir", EACCES},
      {"unlink", EACCES},  {"unlink", EIO},   {"truncate", EIO}, {"truncate", ENOSPC},
      {"seek", EIO},       {"close", EIO},    {"close", ENOSPC}, {"poll", EIO},
      {"fcntl", EMFILE},   {"fcntl", EBADF}};
  std::vector<fault> faults = faults_of(errors, calls);
  std::ranges::move(faults_of({{"write", "none"}}, calls), std::back_inserter(faults));
  for (const fault& fault : faults) {
    SCOPED_TRACE(fault);
    expect_an_orderly_end(sample.after(arguments, fault), sound, statuses);
  }
  std::printf("%zu runs\n", faults.size());
  EXPECT_GT(faults.size(), 50U);
}

class EveryCall : public testing::Test {
 protected:
  void SetUp() override {
    if (const std::string reason = no_faults_because(tool_path()); !reason.empty()) {
      GTEST_SKIP() << reason;
    }
  }
  sample sample_;
};

TEST_F(EveryCall, OfAPackRunMayBeInterruptedOrCutShort) {
  expect_no_difference(sample_, pack);
}

TEST_F(EveryCall, OfAnInspectionMayBeInterruptedOrCutShort) {
  expect_no_difference(sample_, inspect);
}

TEST_F(EveryCall, OfAPackRunMayFail) {
  expect_orderly_ends(sample_, pack, {0, 255});
}

TEST_F(EveryCall, OfAnInspectionMayFail) {
  expect_orderly_ends(sample_, inspect, {1, 255});
}

TEST_F(EveryCall, IsCounted) {
  auto calls = sample_.calls(pack);
  EXPECT_GE(calls["open"], 10U);
  EXPECT_GE(calls["read"], 10U);
  EXPECT_GE(calls["write"], 1U);
  EXPECT_GE(calls["stat"], 10U);
  EXPECT_EQ(calls["opendir"], 2U);
  EXPECT_GE(calls["readdir"], 16U);
  EXPECT_EQ(calls["truncate"], 1U);
  calls = sample_.calls(inspect);
  EXPECT_EQ(calls["mkdir"], 1U);
  EXPECT_EQ(calls["unlink"], 2U);
}

using UnreadableFolder = EveryCall;

TEST_F(UnreadableFolder, ThatFailsMidwayCountsAsOneThatCannotBeOpened) {
  const scratch_folder folder;
  for (int i = 0; i < 300; ++i) {
    folder.write("in/net_split_" + std::to_string(i) + ".dvi", "");
    folder.write("in/net_split_" + std::to_string(i) + ".h", "");
  }
  // 600 files and two names for folders.
  for (const unsigned number : {1U, 2U, 50U, 602U, 603U}) {
    const run_result run =
        run_with({.kind = "readdir", .number = number, .effect = error_effect(EIO)},
                 tool_words({"-d", "in", "-f", "net.bin"}), folder.path());
    EXPECT_EQ(run.status, 255);
    EXPECT_EQ(run.output, "error: can't find matched .dvi files and .h files\n");
    EXPECT_FALSE(folder.exists("net.bin"));
  }
}

TEST_F(UnreadableFolder, ThatFailsMidwayInTheSearchForHeadersHasNone) {
  const scratch_folder folder;
  folder.write("in/net.dvi", "");
  folder.write("in/net.h", "");
  const run_result run =
      run_with({.kind = "readdir", .number = 6, .from_then_on = true, .effect = error_effect(EIO)},
               tool_words({"-d", "in", "-f", "net.bin"}), folder.path());
  EXPECT_EQ(run.status, 255);
  EXPECT_EQ(
      run.output,
      "error: can't find file net.h. please check filename format between .dvi and .h files.\n"
      "error: number of DVI files doesn't match that of Header files.\n");
}

}  // namespace
}  // namespace morvane::test
