#include "harness/scratch_folder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace morvane::test {

namespace fs = std::filesystem;

scratch_folder::scratch_folder(const fs::path& parent)
    : path_((parent / "morvane-XXXXXX").string()) {
  if (::mkdtemp(path_.data()) == nullptr) {
    throw std::runtime_error("cannot make a scratch folder");
  }
}

scratch_folder::~scratch_folder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string scratch_folder::path(std::string_view name) const {
  return (fs::path(path_) / name).string();
}

void scratch_folder::write(std::string_view name, std::string_view content) const {
  const fs::path file = path(name);
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << content;
}

void scratch_folder::make_folder(std::string_view name) const {
  fs::create_directories(path(name));
}

std::string scratch_folder::read(std::string_view name) const {
  std::ifstream file(path(name), std::ios::binary);
  EXPECT_TRUE(file.is_open()) << "no file " << name;
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

bool scratch_folder::exists(std::string_view name) const {
  return fs::exists(fs::symlink_status(path(name)));
}

std::map<std::string, std::string> scratch_folder::files(std::string_view name) const {
  std::map<std::string, std::string> found;
  const fs::path folder = path(name);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      const std::string file = fs::relative(entry.path(), folder).string();
      found[file] = read((fs::path(name) / file).string());
    }
  }
  return found;
}

}  // namespace morvane::test
