// What the code under test prints, the message that many of its parts print alike, and lines that
// are long enough for it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace morvane::test {

/// What an action writes to standard output.
template <class Action>
std::string printed_by(const Action& action) {
  testing::internal::CaptureStdout();
  action();
  return testing::internal::GetCapturedStdout();
}

/// The line about a text that is longer than the limit of a name.
inline std::string length_message(std::string_view limit_name, std::string_view text) {
  std::string line = "error: please increase length limit of MACRO [";
  line.append(limit_name).append("] for string \"").append(text);
  return line.append("\" with length [").append(std::to_string(text.size())).append("]\n");
}

/// A text with DIR wherever it names the folder.
inline std::string with_dir(std::string text, std::string_view folder) {
  for (std::size_t at = 0; (at = text.find(folder)) != std::string::npos;) {
    text.replace(at, folder.size(), "DIR");
  }
  return text;
}

/// A line that begins so and is filled up to a length with a last word of "x".
inline std::string line_of_length(std::string_view begin, std::size_t length) {
  std::string line(begin);
  line.append(" ");
  return line.append(length - line.size(), 'x');
}

}  // namespace morvane::test
