// How much of its lists and pictures a page shows, and what they need.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace morvane::cli {

struct page_limits {
  std::uint64_t max_entries = UINT64_MAX;  // of each list
  std::uint32_t max_pictured = 1000;       // DVIs that a picture shows. The tables show all.
  bool has_field_text = false;             // the fields of a DVI in one paragraph
  bool is_tight = false;                   // without what needs much room for a DVI
};

/// What the entries of all lists that come at one place in their lists need.
struct entry_total {
  std::uint64_t bytes = 0;
  std::uint64_t lists = 0;  // that have such an entry
};

/// A page that is measured before it is written.
struct page_measure {
  std::uint64_t max_kept = 0;          // bytes
  std::uint64_t bytes = 0;             // so far
  std::vector<entry_total> entries{};  // the first of each list, the second of each, ...
  std::string page{};                  // empty when it has more bytes than are kept
};

}  // namespace morvane::cli
