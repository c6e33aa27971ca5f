// The names of a header's macros, and what they belong to.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "cli/lint/header/header_reading.h"

namespace morvane::cli {

/// The kinds that share their macros: inputs and outputs.
enum class macro_family : std::uint8_t { dag, port, variable, smb };
macro_family family_of(object_kind kind);

/// Whether a macro's name is that of a block's macro with a suffix.
bool is_macro_of(std::string_view macro, object_kind kind, std::string_view block,
                 std::string_view suffix, std::string_view dag_name);

/// The name of a block's macro with a suffix.
std::string macro_name(object_kind kind, std::string_view block, std::string_view suffix,
                       std::string_view dag_name);

/// The blocks of each name.
class block_names {
 public:
  struct entry {
    object_kind kind;
    std::uint32_t index;
    std::uint32_t next;  // of the same name, in the list of all blocks; 0 for none
  };

  explicit block_names(const header_reading& reading);

  /// Calls a function with every block of a name in a family.
  template <class Function>
  void for_each(macro_family family, std::string_view name, Function function) const {
    const auto found = first_.at(static_cast<std::size_t>(family)).find(name);
    if (found == first_.at(static_cast<std::size_t>(family)).end()) {
      return;
    }
    for (std::uint32_t at = found->second; at != 0; at = all_[at].next) {
      function(all_[at]);
    }
  }

  /// Whether more than one block has the name.
  [[nodiscard]] bool is_repeated(macro_family family, std::string_view name) const;
  [[nodiscard]] bool is_known(macro_family family, std::string_view name) const {
    return first_.at(static_cast<std::size_t>(family)).contains(name);
  }

 private:
  std::array<std::unordered_map<std::string_view, std::uint32_t>, 4> first_{};
  std::vector<entry> all_{};
};

/// A name, taken apart: a family, a row of its table, and the name of a block.
struct macro_parts {
  macro_family family;
  const macro_row* row = nullptr;  // null for a name that belongs to no block of the family
  std::string_view block{};
};
macro_parts parts_of(std::string_view macro, macro_family family, std::string_view dag_name,
                     const block_names& names);

/// Whether one name becomes the other with at most two letters changed, added or left out, or with
/// letters of the other case.
bool is_nearly(std::string_view one, std::string_view other);

/// Whether only the case of letters differs.
bool is_same_but_case(std::string_view one, std::string_view other);

}  // namespace morvane::cli
