#include "end_to_end/tool_test.h"

#include <algorithm>

namespace morvane::test {

std::string no_ports_in(const std::string& header) {
  return "warning: fail to find HMB input info in in/" + header +
         "\nwarning: fail to find HMB output info in in/" + header + "\n";
}

std::string saved(const std::string& size) {
  return "Save to file net.bin with file size " + size + ".\n\n";
}

std::string length_message(std::string_view limit, std::string_view text) {
  return "error: please increase length limit of MACRO [" + std::string(limit) + "] for string \"" +
         std::string(text) + "\" with length [" + std::to_string(text.size()) + "]\n";
}

void expect_run(const run_result& run, int status, std::string_view output) {
  EXPECT_EQ(run.status, status);
  EXPECT_EQ(run.output, output);
}

void expect_bytes(std::string_view actual, std::string_view expected) {
  EXPECT_EQ(actual.size(), expected.size()) << "as number of bytes";
  const auto [differs, other] = std::ranges::mismatch(actual, expected);
  if (differs != actual.end() && other != expected.end()) {
    ADD_FAILURE() << "byte " << differs - actual.begin() << " is "
                  << int{static_cast<unsigned char>(*differs)} << ", expected "
                  << int{static_cast<unsigned char>(*other)};
  }
}

void expect_files(const folder_content& actual, const folder_content& expected) {
  for (const auto& [name, content] : expected) {
    if (const auto found = actual.find(name); found == actual.end()) {
      ADD_FAILURE() << "no file " << name;
    } else {
      EXPECT_EQ(found->second, content) << "in " << name;
    }
  }
  for (const auto& [name, content] : actual) {
    EXPECT_TRUE(expected.contains(name)) << "unexpected file " << name;
  }
}

void put_dag(const scratch_folder& folder, std::string_view stem, std::string_view header,
             std::string_view image) {
  const std::string name(stem);
  folder.write("in/" + name + ".dvi", image);
  folder.write("in/_" + name + ".h", header);
}

std::string dag_lines(std::string_view dag_name, unsigned image_size) {
  const std::string name(dag_name);
  std::string lines = "#define " + name + "_DAG_NAME " + name + "\n";
  if (image_size > 0) {
    lines += "#define " + name + "_image_size " + std::to_string(image_size) + "\n";
  }
  return lines;
}

std::string packed(std::string_view header, std::string_view image,
                   const std::vector<std::string>& arguments) {
  const scratch_folder folder;
  put_dag(folder, "net", header, image);
  EXPECT_EQ(run_tool(arguments, folder.path()).status, 0);
  return folder.read("net.bin").substr(12);
}

std::string padded(std::string_view text, std::size_t length) {
  std::string line(text);
  line.resize(length, ' ');
  return line;
}

run_result tool_test::tool(const std::vector<std::string>& arguments) const {
  return run_tool(arguments, folder.path());
}

void tool_test::expect_tool(const std::vector<std::string>& arguments, int status,
                            std::string_view output) const {
  expect_run(tool(arguments), status, output);
}

void tool_test::put_dag(std::string_view stem, std::string_view header,
                        std::string_view image) const {
  test::put_dag(folder, stem, header, image);
}

}  // namespace morvane::test
