#include "cli/package/package_bytes.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

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

package_bytes::~package_bytes() {
  if (is_mapped_) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the system's interface
    ::munmap(const_cast<std::uint8_t*>(data_), size_);
  }
}

void package_bytes::swap(package_bytes& other) noexcept {
  std::swap(data_, other.data_);
  std::swap(size_, other.size_);
  std::swap(is_mapped_, other.is_mapped_);
  std::swap(identity_, other.identity_);
  std::swap(file_, other.file_);
  std::swap(read_, other.read_);
}

void package_bytes::release(std::size_t offset, std::uint64_t count) const {
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  const std::size_t begin = std::min(offset, size_);
  const std::size_t end =
      begin + static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - begin));
  const std::size_t first = begin / page * page;
  const std::size_t last = end / page * page;
  if (is_mapped_ && first < last) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the system's interface
    ::madvise(const_cast<std::uint8_t*>(data_ + first), last - first, MADV_DONTNEED);
  }
}

void package_bytes::fetch(std::span<const std::uint8_t> part) const {
#ifdef MADV_POPULATE_READ
  constexpr std::size_t least = std::size_t{64} << 10U;  // bytes that are worth a call
  if (part.size() < least) {
    return;
  }
  const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  const auto begin = static_cast<std::size_t>(part.data() - data_) / page * page;
  const auto end = static_cast<std::size_t>(part.data() - data_) + part.size();
  if (is_mapped_ && begin < end) {
    // A kernel that does not know this reads page by page.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the system's interface
    ::madvise(const_cast<std::uint8_t*>(data_ + begin), end - begin, MADV_POPULATE_READ);
  }
#endif
}

std::size_t package_bytes::copy(std::span<const std::uint8_t> part, int descriptor) const {
  off_t offset = part.data() - data_;
  return is_mapped_ ? copy_file_bytes(file_, &offset, descriptor, part.size()) : 0;
}

bool package_bytes::are_cut() const {
  const auto status = status_of(file_);
  return status && static_cast<std::size_t>(status->st_size) < size_;
}

int package_bytes::load(const std::string& path) {
  return load(open_and_wait(path));
}

int package_bytes::load(file_handle file) {
  struct stat status {};
  if (!file.is_open() || ::fstat(file.descriptor(), &status) != 0) {
    return errno;
  }
  // What cannot be mapped is read, and a pipe has no beginning to go to.
  ::lseek(file.descriptor(), 0, SEEK_SET);
  package_bytes loaded;
  loaded.identity_ = identity_in(status);
  const auto size = static_cast<std::size_t>(status.st_size);
  void* const mapped = S_ISREG(status.st_mode) && size > 0
                           ? ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.descriptor(), 0)
                           : MAP_FAILED;
  if (mapped != MAP_FAILED) {
    loaded.data_ = static_cast<const std::uint8_t*>(mapped);
    loaded.size_ = size;
    loaded.is_mapped_ = true;
    loaded.file_ = std::move(file);
  } else if (const int error = read_to_end(file, loaded.read_); error != 0) {
    return error;
  } else {
    loaded.data_ = loaded.read_.data();
    loaded.size_ = loaded.read_.size();
  }
  swap(loaded);
  return 0;
}

}  // namespace morvane::cli
