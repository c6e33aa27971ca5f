// Keeps what the tool's operations print in this process away from the tests' own output.
#pragma once

namespace morvane::test {

/// Sends standard output to nowhere for as long as it lives.
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
