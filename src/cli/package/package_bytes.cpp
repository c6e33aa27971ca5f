#include "cli/package/package_bytes.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>

#include "cli/output/console.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

/// Opens a file and waits for the writer of a named pipe.
file_handle open_and_wait(const std::string& path) {
  int descriptor = -1;
  do {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's interface
    descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  } while (descriptor < 0 && errno == EINTR);
  return file_handle(descriptor);
}

/// Appends all that a file gives. Returns 0 or an errno.
int read_to_end(const file_handle& file, std::vector<std::uint8_t>& bytes) {
  std::size_t filled = 0;
  ssize_t got = 1;
  while (got != 0) {
    bytes.resize(filled + chunk_size);
    got = ::read(file.descriptor(), bytes.data() + filled, chunk_size);
    if (got < 0 && errno != EINTR) {
      return errno;
    }
    filled += got > 0 ? static_cast<std::size_t>(got) : 0;
  }
  bytes.resize(filled);
  return 0;
}

}  // namespace

void package_bytes::release(std::size_t offset, std::uint64_t count) const {
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  const std::size_t begin = std::min(offset, bytes_.size());
  const std::size_t end =
      begin + static_cast<std::size_t>(std::min<std::uint64_t>(count, bytes_.size() - begin));
  const std::size_t first = begin / page * page;
  const std::size_t last = end / page * page;
  if (mapped_ && first < last) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the system's interface
    ::madvise(const_cast<std::uint8_t*>(bytes_.data() + first), last - first, MADV_DONTNEED);
  }
}

void package_bytes::fetch(std::span<const std::uint8_t> part) const {
#ifdef MADV_POPULATE_READ
  constexpr std::size_t least = std::size_t{64} << 10U;  // bytes that are worth a call
  if (part.size() < least) {
    return;
  }
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  const auto begin = static_cast<std::size_t>(part.data() - bytes_.data()) / page * page;
  const auto end = static_cast<std::size_t>(part.data() - bytes_.data()) + part.size();
  if (mapped_ && begin < end) {
    // A kernel that does not know this reads page by page.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the system's interface
    ::madvise(const_cast<std::uint8_t*>(bytes_.data() + begin), end - begin, MADV_POPULATE_READ);
  }
#endif
}

std::size_t package_bytes::copy(std::span<const std::uint8_t> part, int descriptor) const {
  off_t offset = part.data() - bytes_.data();
  return mapped_ ? copy_file_bytes(mapped_->file(), &offset, descriptor, part.size()) : 0;
}

int package_bytes::load(const std::string& path) {
  return load(path == standard_input_path ? file_handle(::dup(STDIN_FILENO)) : open_and_wait(path),
              path);
}

int package_bytes::load(file_handle file, std::string_view path) {
  const std::optional<struct stat> status = status_of(file);
  if (!status) {
    return errno;
  }
  // What cannot be mapped is read, and a pipe has no beginning to go to.
  ::lseek(file.descriptor(), 0, SEEK_SET);
  package_bytes loaded;
  loaded.identity_ = identity_in(*status);
  const bool is_regular = S_ISREG(status->st_mode);
  auto mapped = std::make_unique<mapped_file>(
      std::move(file), is_regular ? static_cast<std::size_t>(status->st_size) : 0, path);
  if (!mapped->bytes().empty()) {
    loaded.bytes_ = mapped->bytes();
    loaded.mapped_ = std::move(mapped);
  } else if (const int error = read_to_end(mapped->file(), loaded.read_); error != 0) {
    return error;
  } else {
    loaded.bytes_ = loaded.read_;
  }
  *this = std::move(loaded);
  return 0;
}

}  // namespace morvane::cli
