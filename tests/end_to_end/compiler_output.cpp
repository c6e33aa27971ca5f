#include "end_to_end/compiler_output.h"

#include <gtest/gtest.h>

namespace morvane::test {

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

}  // namespace morvane::test
