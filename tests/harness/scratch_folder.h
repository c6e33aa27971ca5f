// A folder for one test, which is removed with its content at the end of the test.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace morvane::test {

class scratch_folder {
 public:
  /// Makes the folder in the folder for temporary files, or in another folder.
  scratch_folder() : scratch_folder(std::filesystem::temp_directory_path()) {}
  explicit scratch_folder(const std::filesystem::path& parent);
  scratch_folder(const scratch_folder&) = delete;
  scratch_folder& operator=(const scratch_folder&) = delete;
  ~scratch_folder();

  /// The path of the folder.
  [[nodiscard]] const std::string& path() const { return path_; }

  /// The path of a name in the folder.
  [[nodiscard]] std::string path(std::string_view name) const;

  /// Writes a file in the folder, and makes missing folders above it.
  void write(std::string_view name, std::string_view content) const;

  /// Makes a folder in the folder.
  void make_folder(std::string_view name) const;

  /// The content of a file in the folder. Fails the test if there is no such file.
  [[nodiscard]] std::string read(std::string_view name) const;

  [[nodiscard]] bool exists(std::string_view name) const;

  /// The content of every regular file below a folder in the folder, by its path from there.
  [[nodiscard]] std::map<std::string, std::string> files(std::string_view name = ".") const;

 private:
  std::string path_;
};

}  // namespace morvane::test
