// The output of the code under test, the message about texts that are too long, and long lines.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace morvane::test {

/// The standard output of an action.
template <class Action>
std::string printed_by(const Action& action) {
  testing::internal::CaptureStdout();
  action();
  return testing::internal::GetCapturedStdout();
}

/// The message for a text that is longer than the limit of this name.
inline std::string length_message(std::string_view limit_name, std::string_view text) {
  std::string line = "error: please increase length limit of MACRO [";
  line.append(limit_name).append("] for string \"").append(text);
  return line.append("\" with length [").append(std::to_string(text.size())).append("]\n");
}

/// A line of this length: the text and a last word of "x".
inline std::string line_of_length(std::string_view begin, std::size_t length) {
  std::string line(begin);
  line.append(" ");
  return line.append(length - line.size(), 'x');
}

}  // namespace morvane::test
