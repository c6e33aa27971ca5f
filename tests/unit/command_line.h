// Command lines for operations that run inside the test program.
#pragma once

#include <getopt.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "driver/settings.h"

namespace morvane::test {

/// The arguments of main; the first is the name of the program.
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

/// Lets each test begin like a new process, with default settings and getopt_long at the first
/// word.
class FreshSettings : public testing::Test {
 protected:
  FreshSettings() {
    settings = settings_record{};
    optind = 0;
  }
};

}  // namespace morvane::test
