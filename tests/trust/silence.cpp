#include "trust/silence.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace morvane::test {

silence::silence() : output_(::dup(STDOUT_FILENO)) {
  std::fflush(stdout);
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  ::dup2(nowhere, STDOUT_FILENO);
  ::close(nowhere);
}

silence::~silence() {
  std::fflush(stdout);
  ::dup2(output_, STDOUT_FILENO);
  ::close(output_);
}

}  // namespace morvane::test
