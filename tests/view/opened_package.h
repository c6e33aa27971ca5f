// A package in a buffer that is exactly as long, and a view of it.
#pragma once

#include <morvane/package_view.h>

#include <memory>
#include <string>
#include <string_view>

namespace morvane::test {

/// The bytes on the heap: a read beside them is noticed by a sanitizer.
struct opened_package {
  explicit opened_package(std::string_view package);

  /// Opens the bytes again, which somebody has changed.
  void open_again();

  std::size_t size;
  std::unique_ptr<std::uint8_t[]> bytes;
  morvane_view view{};
  morvane_view_damage damage{};
  int status = 0;  // what opening returned
};

/// A text of a package.
std::string str(morvane_text text);

/// Bytes of a package.
std::string str(morvane_bytes bytes);

}  // namespace morvane::test
