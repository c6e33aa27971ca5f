// Command lines inside the test program, which reads one after the other.
#pragma once

#include <getopt.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "driver/settings.h"

namespace morvane::test {

/// A command line as main gets it; the program's name is its first word.
class command_line {
 public:
  explicit command_line(std::vector<std::string> words) : words_(std::move(words)) {
    words_.insert(words_.begin(), "morvane_gen");
    for (std::string& word : words_) {
      arguments_.push_back(word.data());
    }
    arguments_.push_back(nullptr);
  }

  [[nodiscard]] int argc() const { return static_cast<int>(words_.size()); }
  [[nodiscard]] char** argv() { return arguments_.data(); }

 private:
  std::vector<std::string> words_;
  std::vector<char*> arguments_;
};

/// Lets each test begin as a process does: with default settings, and getopt_long before the first
/// word.
class FreshSettings : public testing::Test {
 protected:
  FreshSettings() {
    settings = settings_record{};
    optind = 0;
  }
};

}  // namespace morvane::test
