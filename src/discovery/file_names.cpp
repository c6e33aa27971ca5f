#include "discovery/file_names.h"

#include <algorithm>
#include <cstdlib>

#include "format/file_naming.h"
#include "headers/length_check.h"
#include "io/message.h"

namespace morvane {

namespace {

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

/// By bytes: the result does not depend on the locale.
char to_lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string_view type_of(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

}  // namespace

std::string lower_case_type(std::string_view name) {
  std::string type(type_of(name));
  std::ranges::transform(type, type.begin(), to_lower);
  return type;
}

std::string get_file_type(std::string_view name, bool keep_case) {
  if (check_length_limit(name, file_name_limit) != 0) {
    return {};
  }
  return keep_case ? std::string(type_of(name)) : lower_case_type(name);
}

std::string_view get_file_stem(std::string_view name) {
  if (check_length_limit(name, file_name_limit) != 0) {
    return {};
  }
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(0, dot);
}

int parse_file_index(std::string_view name, std::int32_t& index) {
  const std::string type = get_file_type(name, true);
  const std::size_t extension = name.find("." + type);
  if (extension == std::string_view::npos) {
    print_line("error: can't match file type .", type, " for file ", name);
    return -1;
  }
  const std::size_t mark = name.find(index_mark);
  if (mark == std::string_view::npos) {
    index = 0;
    return 0;
  }
  if (extension == 0 || !is_digit(name[extension - 1])) {
    print_line("error: filename format is incorrect, can't find file index for file ", name);
    return -1;
  }
  // The digits end at the first place of the extension, which may be before the mark. Digits before
  // the mark do not count.
  std::size_t digits = extension;
  while (digits > mark + index_mark.size() && is_digit(name[digits - 1])) {
    --digits;
  }
  const std::string number(name.substr(digits, extension - digits));
  index = static_cast<std::int32_t>(std::strtol(number.c_str(), nullptr, 10));
  return 0;
}

}  // namespace morvane
