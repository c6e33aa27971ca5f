#include "inspect/parse_folder.h"

#include <sys/stat.h>

#include <cstdio>

#include "io/message.h"

namespace morvane {

namespace {

constexpr std::string_view folder_name = "parse";
constexpr mode_t folder_mode = 0777;  // less what the umask takes

file_handle open_parsed_file(const parsed_file& file, file_handle (*open)(const std::string&)) {
  file_handle handle = file.in_folder ? open(file.path) : file_handle();
  if (!handle.is_open()) {
    report_open_failure(file.path);
  }
  return handle;
}

}  // namespace

parsed_file file_in_folder(std::string_view folder, std::string_view name) {
  return {.path = join_path(folder, name), .in_folder = name.find('/') == std::string_view::npos};
}

std::string make_parse_folder(const std::string& parsedir) {
  std::string folder = join_path(parsedir, folder_name);
  ::mkdir(folder.c_str(), folder_mode);
  return folder;
}

file_handle create_parsed_file(const parsed_file& file) {
  return open_parsed_file(file, open_to_write_in_place);
}

file_handle append_to_parsed_file(const parsed_file& file) {
  return open_parsed_file(file, open_to_append_in_place);
}

void remove_parsed_file(const parsed_file& file) {
  if (file.in_folder) {
    static_cast<void>(std::remove(file.path.c_str()));
  }
}

}  // namespace morvane
