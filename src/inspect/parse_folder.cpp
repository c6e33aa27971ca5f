#include "inspect/parse_folder.h"

#include <sys/stat.h>

#include <span>

#include "format/file_naming.h"
#include "io/message.h"

namespace morvane {

namespace {

constexpr std::string_view parse_folder_name = "parse";
constexpr mode_t folder_mode = 0777;  // less what the umask takes

bool is_in_folder(std::string_view name) {
  return name.find('/') == std::string_view::npos;
}

int report_name(const parse_folder& folder, std::string_view name) {
  return report_open_failure(join_path(folder.path, name));
}

file_handle create_in_folder(const parse_folder& folder, const std::string& name) {
  return is_in_folder(name) ? create_file(folder.handle, name, folder.package) : file_handle();
}

/// What the system knows of a header that was just created; nothing when there is none.
created_file as_created(const file_handle& file) {
  const auto status = status_of(file);
  return status ? created_file{.identity = identity_in(*status)} : created_file{};
}

}  // namespace

parse_folder make_parse_folder(std::string_view parsedir, const file_identity& package) {
  parse_folder folder{.path = join_path(parsedir, parse_folder_name), .package = package};
  ::mkdir(folder.path.c_str(), folder_mode);
  folder.handle = open_folder(folder.path);
  return folder;
}

file_handle create_image(const parse_folder& folder, std::string_view dag_name) {
  const std::string name = image_name(dag_name);
  file_handle image = create_in_folder(folder, name);
  if (!image.is_open()) {
    report_name(folder, name);
  }
  return image;
}

void remove_header(const parse_folder& folder, std::string_view dag_name) {
  const std::string name = marked_header_name(dag_name);
  if (is_in_folder(name)) {
    remove_entry(folder.handle, name, folder.package, true);
  }
}

int append_to_header(parse_folder& folder, std::string_view dag_name, std::string_view lines) {
  const std::string name = marked_header_name(dag_name);
  const auto [header, is_first] = folder.headers.try_emplace(dag_name);
  const file_handle file =
      is_first ? create_in_folder(folder, name) : reopen_file(folder.handle, name, header->second);
  if (!file.is_open()) {
    if (is_first) {
      folder.headers.erase(header);
    }
    return report_name(folder, name);
  }
  if (is_first) {
    header->second = as_created(file);
  }
  header->second.size += write_bytes(file, std::as_bytes(std::span(lines)));
  return 0;
}

}  // namespace morvane
