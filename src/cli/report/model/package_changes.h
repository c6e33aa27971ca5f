// What changed since an older package, by the DVIs and records of the new one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "cli/diff/difference.h"
#include "cli/output/console.h"
#include "cli/package/opened_package.h"

namespace morvane::cli {

/// What happened to a DVI, or to a record of one.
enum class change_mark : std::uint8_t { none, changed, added };

/// The changes of one DVI: a part of package_changes::kept.
struct dvi_changes {
  change_mark mark = change_mark::none;
  std::size_t first = 0;
  std::size_t count = 0;  // of those that are kept
  std::uint64_t all = 0;
};

struct package_changes {
  std::string old_name{};           // of the file
  bool is_old_damaged = false;      // then what comes after the damage counts as missing
  std::vector<difference> kept{};   // the first ones; names and texts lie in the packages
  std::uint64_t all = 0;            // how many differences there are
  std::vector<dvi_changes> dvis{};  // of the new package, by position
};

/// Compares the packages, which must live as long as the result.
package_changes find_changes(const opened_package& old_package, const opened_package& new_package,
                             console& streams);

/// The marks of the records of a DVI, and how often each name was met.
struct record_marks {
  std::map<std::tuple<object_kind, named_record>, change_mark> marks{};
  std::map<std::tuple<object_kind, std::string_view>, std::uint32_t> met{};
};

/// The marks of a DVI; none when there is nothing to compare with.
record_marks marks_of(const package_changes* changes, std::uint32_t dvi);

/// The mark of the next record of a kind with this name.
change_mark next_mark(record_marks& marks, object_kind kind, std::string_view name);

/// The last part of a path. The folders are not on the page: it is for other people too.
inline std::string_view file_name(std::string_view path) {
  if (path == standard_input_path) {
    return "standard input";
  }
  return path.substr(path.rfind('/') + 1);
}

}  // namespace morvane::cli
