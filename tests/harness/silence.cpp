#include "harness/silence.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace morvane::test {

silence::silence(int stream) : stream_(stream), output_(::dup(stream)) {
  std::fflush(stdout);
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  ::dup2(nowhere, stream_);
  ::close(nowhere);
}

silence::~silence() {
  std::fflush(stdout);
  ::dup2(output_, stream_);
  ::close(output_);
}

}  // namespace morvane::test
