#include "cli/extract/image_writing.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>

#include "cli/output/console.h"

namespace morvane::cli {

namespace {

constexpr std::size_t part_size = std::size_t{1} << 20U;

}  // namespace

int write_image(const opened_package& package, std::span<const std::uint8_t> image, int descriptor,
                const blocked_signals* signals, progress_line& progress) {
  for (std::size_t done = 0; done < image.size();) {
    const auto part = image.subspan(done, std::min(part_size, image.size() - done));
    const auto rest = part.subspan(package.bytes.copy(part, descriptor));
    package.bytes.fetch(rest);
    if (const int error = write_checked(descriptor, std::as_bytes(rest)); error != 0) {
      return error;
    }
    if (signals != nullptr && signals->is_waiting()) {
      return EINTR;
    }
    package.bytes.release(part);
    done += part.size();
    show_progress(progress, done);
  }
  return package.bytes.are_cut() ? EFAULT : 0;
}

}  // namespace morvane::cli
