#include "cli/output/checked_write.h"

#include <cerrno>

#include "io/file.h"

namespace morvane::cli {

int write_checked(int descriptor, std::span<const std::byte> bytes) {
  return write_bytes(descriptor, bytes) == bytes.size() ? 0 : errno;
}

}  // namespace morvane::cli
