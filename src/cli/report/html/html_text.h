// Pieces of an HTML page: texts from packages, numbers and sizes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace morvane::cli {

/// A text from a package, shown as it is on a page: nothing of it becomes markup. Control
/// characters and bytes that are not UTF-8 are shown as \x1b; what would change the direction of
/// the text around it, and what HTML forbids, as \u202e. A text that takes more bytes of the page
/// than max_text_bytes is shortened like a name in a picture.
std::string html(std::string_view text);

/// A name in a picture, shortened in its middle to so many characters: names often differ at their
/// end.
std::string short_html(std::string_view text, std::size_t max_characters);

/// "25,379"
std::string grouped(std::uint64_t number);

/// "1 port", "25,379 bytes"
std::string counted(std::uint64_t number, std::string_view thing);

/// "512 bytes", "25,379 bytes (24.8 KiB)"
std::string byte_size(std::uint64_t bytes);

/// "512 B", "24.8 KiB", "1.5 GiB"
std::string rounded_size(std::uint64_t bytes);

/// "12.34%"
std::string percent(std::uint64_t hundredths);

}  // namespace morvane::cli
