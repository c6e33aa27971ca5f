#pragma once

#include <span>
#include <string_view>

#include "io/file.h"

namespace morvane::test {

/// Writes a text to an open file, all of it.
inline void write_text(const file_handle& file, std::string_view text) {
  write_bytes(file, std::as_bytes(std::span(text)));
}

}  // namespace morvane::test
