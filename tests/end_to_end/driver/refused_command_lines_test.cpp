// Command lines that lead to the usage text: unknown switches and names that are too long.
#include "end_to_end/driver/usage_text.h"
#include "end_to_end/inspection_output.h"
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

const std::string unknown_switch = "morvane_gen: unknown switch\n" + usage_text;

/// A path with this number of characters to a name in the current folder: "././././name".
std::string long_path(std::string_view name, std::size_t length) {
  std::string path;
  while (path.size() + 2 + name.size() <= length) {
    path += "./";
  }
  if (path.size() + name.size() < length) {
    path += '/';
  }
  return path.append(name);
}

using RefusedCommandLine = tool_test;

TEST_F(RefusedCommandLine, OfASwitchThatIsUnknownOrAmbiguousOrHasAnArgumentTooFewOrTooMany) {
  const struct {
    std::vector<std::string> words;
    const char* diagnostics;
  } rows[] = {
      {{"-x"}, "invalid option -- 'x'"},
      {{"-V"}, "invalid option -- 'V'"},
      {{"--unknown"}, "unrecognized option '--unknown'"},
      {{"--ver"}, "option '--ver' is ambiguous"},
      {{"--verbose=1"}, "option '--verbose' doesn't allow an argument"},
      {{"-v", "-f"}, "option requires an argument -- 'f'"},
      {{"-v", "-d"}, "option requires an argument -- 'd'"},
      {{"-v", "-p"}, "option requires an argument -- 'p'"},
      {{"-v", "--filename"}, "option '--filename' requires an argument"},
      {{"-v", "--dir"}, "option '--dir' requires an argument"},
      {{"-v", "--parsedir"}, "option '--parsedir' requires an argument"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.diagnostics);
    const run_result run = tool(row.words);
    expect_run(run, 255, unknown_switch);
    EXPECT_NE(run.diagnostics.find(row.diagnostics), std::string::npos) << run.diagnostics;
  }
}

TEST_F(RefusedCommandLine, SwitchesBeforeTheUnknownOneAreNotActedOn) {
  put_dag("net", dag_lines("net"));
  folder.write("net.bin", package_header(0));
  expect_tool({"--version", "-x"}, 255, unknown_switch);
  expect_tool({"-h", "-x"}, 255, unknown_switch);
  expect_tool({"-f", "net.bin", "-v", "-x"}, 255, unknown_switch);
  expect_tool({"-d", "in", "-x"}, 255, unknown_switch);
  EXPECT_FALSE(folder.exists("morvane_gen.bin"));
  EXPECT_FALSE(folder.exists("parse"));
}

TEST_F(RefusedCommandLine, SwitchesAfterTheUnknownOneAreNotLookedAt) {
  expect_tool({"-x", "-y", "-f", std::string(2049, 'f')}, 255, unknown_switch);
  expect_tool({"-xh", "--version"}, 255, unknown_switch);
}

TEST_F(RefusedCommandLine, OfANameOf2049Characters) {
  const struct {
    std::vector<std::string> options;
    const char* name;
    const char* message;
  } rows[] = {
      {{"-f", "--filename"}, "net.bin", "error: filename exceed 2048\n"},
      {{"-d", "--dir"}, "in", "error: directory name exceed 2048\n"},
      {{"-p", "--parsedir"}, ".", "error: parse folder name exceed 2048\n"},
  };
  put_dag("net", dag_lines("net"));
  folder.write("net.bin", package_header(0));
  const folder_content before = folder.files();
  for (const auto& row : rows) {
    for (const std::string& option : row.options) {
      expect_tool({"-v", option, long_path(row.name, 2049)}, 255, row.message + usage_text);
    }
  }
  expect_files(folder.files(), before);
}

TEST_F(RefusedCommandLine, OnlyTheFirstNameThatIsTooLongIsReported) {
  const std::string name(2049, 'n');
  expect_tool({"-p", name, "-x", "-f", name, "--version"}, 255,
              "error: parse folder name exceed 2048\n" + usage_text);
}

using LongestNames = tool_test;

TEST_F(LongestNames, Of2048CharactersAreTaken) {
  put_dag("net", dag_lines("net", 5), "image");
  const std::string input = long_path("in", 2048);
  const std::string package = long_path("net.bin", 2048);
  const std::string parsedir = long_path(".", 2048);
  ASSERT_EQ(input.size(), 2048U);
  ASSERT_EQ(package.size(), 2048U);
  ASSERT_EQ(parsedir.size(), 2048U);
  const dvi_fields dvi = {.img_size = 5, .pkg_size = 5, .dag_name = "net"};
  expect_tool({"-d", input, "-f", package, "-p", parsedir, "-v"}, 0,
              "warning: fail to find HMB input info in " + input + "/_net.h\n" +
                  "warning: fail to find HMB output info in " + input + "/_net.h\n" +
                  "Save to file " + package + " with file size 173.\n\n" + report_begin({dvi}) +
                  report_end(parsedir));
  expect_bytes(folder.read("net.bin"), package_header(1) + dvi_record(dvi) + "image");
  EXPECT_EQ(folder.read("parse/net.dvi"), "image");
}

}  // namespace
}  // namespace morvane::test
