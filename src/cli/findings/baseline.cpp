#include "cli/findings/baseline.h"

#include <algorithm>
#include <cerrno>

#include "cli/output/console.h"
#include "cli/output/printable_text.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

constexpr std::string_view standard_input = "-";

constexpr std::string_view first_line =
    "# Findings that morvane accepts with --baseline; # stands for a number.\n";

/// The path of a file as the folder names it, so that an entry holds wherever the folder is.
std::string_view path_in(std::string_view folder, std::string_view path) {
  if (path == folder) {
    return ".";
  }
  const bool is_inside = path.starts_with(folder) && path.substr(folder.size()).starts_with('/');
  return is_inside ? path.substr(folder.size() + 1) : path;
}

/// Decimal, hexadecimal, with a sign, or several with colons: "12", "0x1f4", "-3", "1:12".
bool is_number(std::string_view word) {
  const std::string_view digits = word.substr(word.starts_with('-') ? 1 : 0);
  const bool is_hexadecimal = digits.starts_with("0x");
  return digits.find_first_of("0123456789") == 0 &&
         digits.find_first_not_of(is_hexadecimal ? "0123456789abcdefABCDEFx" : "0123456789:") ==
             std::string_view::npos;
}

/// A word without the number that it is, if it is one; what is around that stays: "(#),".
std::string without_number(std::string_view word) {
  const std::size_t begin = std::min(word.find_first_not_of('('), word.size());
  const std::size_t end = word.find_last_not_of("),;:.") + 1;
  return begin < end && is_number(word.substr(begin, end - begin))
             ? joined(word.substr(0, begin), "#", word.substr(end))
             : std::string(word);
}

/// Whether a word begins or ends a text in quotes, and does not do both.
bool changes_quotes(std::string_view word) {
  bool is_changed = false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    is_changed = is_changed != (word[i] == '"' && (i == 0 || word[i - 1] != '\\'));
  }
  return is_changed;
}

/// A text with "#" for every number. What is in quotes is a name, or a part of one.
std::string without_numbers(std::string_view text) {
  std::string result;
  bool is_quoted = false;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    const std::string_view word = text.substr(begin, end - begin);
    append_pieces(result, begin == 0 ? "" : " ",
                  is_quoted ? std::string(word) : without_number(word));
    is_quoted = is_quoted != changes_quotes(word);
    begin = end + 1;
  }
  return result;
}

}  // namespace

std::string baseline_entry(const finding& found, std::string_view folder) {
  return joined(found.kind->code, " ", printable(path_in(folder, found.file)),
                found.name.empty() ? "" : " ", printable(found.name), ": ",
                without_numbers(found.text));
}

std::string_view folder_of(std::string_view path) {
  return path.substr(0, path.rfind('/') == std::string_view::npos ? 0 : path.rfind('/'));
}

int read_baseline(const std::string& path, open_entries& entries) {
  const readable_file opened = open_to_read(path == standard_input ? "/dev/stdin" : path);
  if (!opened.handle.is_open()) {
    return errno;
  }
  const file_content file = read_file(opened);
  std::uint32_t number = 0;
  for (std::string_view rest = file.text; !rest.empty();) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    ++number;
    const std::string_view entry = line.substr(0, line.find_last_not_of('\r') + 1);
    if (!entry.empty() && !entry.starts_with('#')) {
      entries.emplace(entry, number);
    }
  }
  return file.error;
}

bool accepts(open_entries& entries, const std::string& entry) {
  const auto accepted = entries.lower_bound(entry);
  if (accepted == entries.end() || accepted->first != entry) {
    return false;
  }
  entries.erase(accepted);
  return true;
}

std::string baseline_text(std::vector<std::string> entries) {
  std::ranges::sort(entries);
  std::string text(first_line);
  for (const std::string& entry : entries) {
    append_pieces(text, entry, "\n");
  }
  return text;
}

}  // namespace morvane::cli
