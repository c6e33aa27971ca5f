// A named pipe that is read like a file.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace morvane::test {

/// A pipe that holds bytes and whose writer has ended.
class filled_pipe {
 public:
  filled_pipe(const std::string& path, const std::string& bytes) {
    ::mkfifo(path.c_str(), 0600);
    reader_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
    const int writer = ::open(path.c_str(), O_WRONLY | O_NONBLOCK);
    filled_ = ::fcntl(writer, F_SETPIPE_SZ, 1 << 20) > 0 &&
              ::write(writer, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    ::close(writer);
  }
  filled_pipe(const filled_pipe&) = delete;
  filled_pipe& operator=(const filled_pipe&) = delete;
  ~filled_pipe() { ::close(reader_); }

  [[nodiscard]] bool filled() const { return filled_; }

 private:
  int reader_ = -1;
  bool filled_ = false;
};

}  // namespace morvane::test
