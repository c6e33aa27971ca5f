#include "end_to_end/expectations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace morvane::test {

namespace fs = std::filesystem;

namespace {

fs::path expected_path(std::string_view name) {
  return fs::path(source_folder()) / "tests/end_to_end" / name;
}

std::string content_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << "no file " << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::string saved(const std::string& size) {
  return "Save to file net.bin with file size " + size + ".\n\n";
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

std::string length_message(std::string_view limit, std::string_view text) {
  return "error: please increase length limit of MACRO [" + std::string(limit) + "] for string \"" +
         std::string(text) + "\" with length [" + std::to_string(text.size()) + "]\n";
}

std::string expected_file(std::string_view name) {
  return content_of(expected_path(name));
}

folder_content expected_files(std::string_view name) {
  const fs::path folder = expected_path(name);
  folder_content files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      files[fs::relative(entry.path(), folder).string()] = content_of(entry.path());
    }
  }
  return files;
}

std::string bytes_of_hex(std::string_view text) {
  std::string bytes;
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line.substr(0, line.find('#')));
    for (std::string word; words >> word;) {
      const std::size_t star = word.find('*');
      const int value = std::stoi(word.substr(0, star), nullptr, 16);
      const std::size_t times = star == std::string::npos ? 1 : std::stoul(word.substr(star + 1));
      bytes.append(times, static_cast<char>(value));
    }
  }
  return bytes;
}

}  // namespace morvane::test
