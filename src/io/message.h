// Lines on standard output: reports and messages, including errors.
#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <string>
#include <string_view>
#include <utility>

namespace morvane {

inline void append_piece(std::string& text, std::string_view piece) {
  text += piece;
}

/// Appends a literal. Its length is known at compile time.
template <std::size_t size>
// NOLINTNEXTLINE(*-avoid-c-arrays): that is what a literal is
void append_piece(std::string& text, const char (&literal)[size]) {
  text.append(literal, size - 1);
}

/// Appends a number in decimal, a byte too.
template <std::integral Number>
requires(!std::same_as<Number, char> &&
         !std::same_as<Number, bool>) void append_piece(std::string& text, Number number) {
  std::array<char, 20> digits{};  // the longest number of 64 bits, with its sign
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  text.append(digits.data(), static_cast<std::size_t>(result.ptr - digits.data()));
}

/// Appends the pieces, texts and numbers, one after the other.
template <class... Pieces>
void append_pieces(std::string& text, const Pieces&... pieces) {
  (append_piece(text, pieces), ...);
}

/// Writes a text to standard output at once, without a buffer between.
void print_text(std::string_view text);

/// As long as it lives, print_text appends to its text instead, or forgets what it was to print.
/// The last one counts.
class collected_messages {
 public:
  explicit collected_messages(bool keeps_them = true);
  collected_messages(const collected_messages&) = delete;
  collected_messages& operator=(const collected_messages&) = delete;
  collected_messages(collected_messages&&) = delete;
  collected_messages& operator=(collected_messages&&) = delete;
  ~collected_messages();

  const bool keeps;
  std::string text{};
  collected_messages* const outer;  // that counts again afterwards; null if there is none
};

/// Prints the pieces, texts and numbers, as one line.
template <class... Pieces>
void print_line(const Pieces&... pieces) {
  std::string line;
  append_pieces(line, pieces..., "\n");
  print_text(line);
}

/// What a message about a file that cannot be opened says before the path.
inline constexpr std::string_view open_failure_text = "can't open file ";

/// Prints "can't open file " and the path. Returns -1.
int report_open_failure(std::string_view path);

}  // namespace morvane
