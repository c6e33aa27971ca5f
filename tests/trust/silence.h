// Keeps the output of the tool's operations in this process out of the tests' output.
#pragma once

namespace morvane::test {

/// Discards standard output as long as it lives.
class silence {
 public:
  silence();
  silence(const silence&) = delete;
  silence& operator=(const silence&) = delete;
  ~silence();

 private:
  int output_;
};

}  // namespace morvane::test
