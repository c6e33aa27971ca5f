#include "companion/checked_write.h"

#include <cerrno>

#include "io/file.h"

namespace morvane::companion {

int write_checked(int descriptor, std::span<const std::uint8_t> bytes) {
  return write_bytes(descriptor, std::as_bytes(bytes)) == bytes.size() ? 0 : errno;
}

}  // namespace morvane::companion
