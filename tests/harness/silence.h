// Keeps the output of the tool's operations in this process out of the tests' output.
#pragma once

#include <unistd.h>

namespace morvane::test {

/// Discards a stream, standard output by default, as long as it lives.
class silence {
 public:
  explicit silence(int stream = STDOUT_FILENO);
  silence(const silence&) = delete;
  silence& operator=(const silence&) = delete;
  ~silence();

 private:
  int stream_;
  int output_;
};

}  // namespace morvane::test
