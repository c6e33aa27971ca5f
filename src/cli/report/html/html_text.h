// Pieces of an HTML page: texts from packages, numbers and sizes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "io/message.h"

namespace morvane::cli {

/// A text from a package, shown as it is on a page: nothing of it becomes markup. Control
/// characters and bytes that are not UTF-8 are shown as \x1b; what would change the direction of
/// the text around it, and what HTML forbids, as \u202e. A text that takes more bytes of the page
/// than max_text_bytes is shortened like a name in a picture.
struct html {
  std::string_view text;
};
void append_piece(std::string& page, const html& piece);

/// A name in a picture, shortened in its middle to so many characters: names often differ at their
/// end.
struct short_html {
  std::string_view text;
  std::size_t max_characters;
};
void append_piece(std::string& page, const short_html& piece);

/// "0x1f4"
struct hex {
  std::uint64_t number;
};
void append_piece(std::string& page, hex piece);

/// "25,379"
struct grouped {
  std::uint64_t number;
};
void append_piece(std::string& page, grouped piece);

/// "1 port", "25,379 bytes"
struct counted {
  std::uint64_t number;
  std::string_view thing;
};
void append_piece(std::string& page, const counted& piece);

/// "512 bytes", "25,379 bytes (24.8 KiB)"
struct byte_size {
  std::uint64_t bytes;
};
void append_piece(std::string& page, byte_size piece);

/// "512 B", "24.8 KiB", "1.5 GiB"
struct rounded_size {
  std::uint64_t bytes;
};
void append_piece(std::string& page, rounded_size piece);

/// "12.34%"
struct percent {
  std::uint64_t hundredths;
};
void append_piece(std::string& page, percent piece);

}  // namespace morvane::cli
