// The result of input discovery, for the header parsers and the pack run.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "format/name_store.h"

namespace morvane {

/// A file of the input folder. The name lies in the list that the entry is from.
struct input_entry {
  std::string_view name;   // without the folder
  std::int32_t index = 0;  // the number before the extension of the DVI's name
};

/// Files of the input folder. Headers are listed in the order of their DVIs: the header and the DVI
/// at the same position belong together and have the same index.
class input_list {
 public:
  input_list() = default;
  input_list(std::initializer_list<input_entry> files) {
    for (const input_entry file : files) {
      add(file);
    }
  }

  [[nodiscard]] std::size_t size() const { return places_.size(); }
  [[nodiscard]] bool empty() const { return places_.empty(); }

  input_entry operator[](std::size_t position) const {
    const place& file = places_[position];
    return {.name = file.name, .index = file.index};
  }

  void add(const input_entry& file) {
    places_.push_back({.name = names_.add(file.name), .index = file.index});
  }

  /// Sorts as std::sort does: the order of entries with equal indices follows from the algorithm.
  void sort_by_index() {
    std::sort(places_.begin(), places_.end(),
              [](const place& a, const place& b) { return a.index < b.index; });
  }

  /// For loops over all entries.
  class iterator {
   public:
    iterator(const input_list& list, std::size_t position) : list_(&list), position_(position) {}
    input_entry operator*() const { return (*list_)[position_]; }
    iterator& operator++() {
      ++position_;
      return *this;
    }
    bool operator==(const iterator& other) const = default;

   private:
    const input_list* list_;
    std::size_t position_;
  };

  [[nodiscard]] iterator begin() const { return {*this, 0}; }
  [[nodiscard]] iterator end() const { return {*this, size()}; }

 private:
  struct place {
    const char* name;
    std::int32_t index;
  };

  name_store names_{};
  std::vector<place> places_{};
};

}  // namespace morvane
