#include "companion/checked_write.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace morvane::companion {

namespace {

/// Writes a part of the bytes; returns how many, or -1 with errno. Waits for a descriptor that
/// takes nothing now.
ssize_t write_some(int descriptor, std::span<const std::byte> bytes) {
  const ssize_t put = ::write(descriptor, bytes.data(), bytes.size());
  if (put == 0) {
    errno = EIO;
    return -1;
  }
  if (put < 0 && errno == EINTR) {
    return 0;
  }
  if (put < 0 && errno == EAGAIN) {
    pollfd ready{.fd = descriptor, .events = POLLOUT, .revents = 0};
    return ::poll(&ready, 1, -1) < 0 && errno != EINTR ? -1 : 0;
  }
  return put;
}

}  // namespace

int write_checked(int descriptor, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t put = write_some(descriptor, bytes);
    if (put < 0) {
      return errno;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(put));
  }
  return 0;
}

}  // namespace morvane::companion
