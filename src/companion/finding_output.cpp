#include "companion/finding_output.h"

#include <array>
#include <charconv>

#include "companion/printable_text.h"

namespace morvane::companion {

namespace {

std::string hexadecimal(std::uint64_t number) {
  std::array<char, 16> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return joined("0x", std::string_view(digits.data(), result.ptr));
}

/// "12:26" or "0x1f4"
std::string str(const finding_place& place) {
  if (place.line == 0) {
    return hexadecimal(place.offset);
  }
  return joined(place.line, ":", place.column);
}

std::string shown_severity(severity level, bool colour) {
  // Bold red, magenta and cyan.
  constexpr std::array<std::string_view, 3> colours{"\x1b[1;31m", "\x1b[1;35m", "\x1b[1;36m"};
  const std::string_view name = name_of(level);
  return joined(colour ? colours.at(static_cast<std::size_t>(level)) : "", name,
                colour ? "\x1b[0m" : "");
}

}  // namespace

void count(const finding& found, finding_counts& counts) {
  switch (found.kind->level) {
    case severity::error:
      ++counts.errors;
      break;
    case severity::warning:
      ++counts.warnings;
      break;
    default:
      ++counts.notes;
  }
}

std::string finding_line(const finding& found, bool colour) {
  return joined(printable(found.file), ":", str(found.place), ": ",
                shown_severity(found.kind->level, colour), ": ", found.text, " [", found.kind->code,
                "]\n");
}

void write_finding(console& streams, const finding& found) {
  if (!streams.quiet || found.kind->level == severity::error) {
    print_result(streams, finding_line(found, streams.colour));
  }
}

}  // namespace morvane::companion
