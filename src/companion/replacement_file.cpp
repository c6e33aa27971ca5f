#include "companion/replacement_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>

namespace morvane::companion {

namespace {

constexpr std::array ending_signals{SIGINT, SIGTERM, SIGHUP};

/// The temporary files that a signal removes. The ending signals are held back while this changes.
std::array<const char*, 2> temporary_paths{};

extern "C" void remove_and_end(int signal) {
  for (const char* const path : temporary_paths) {
    if (path != nullptr) {
      ::unlink(path);
    }
  }
  std::signal(signal, SIG_DFL);  // NOLINT(cert-err33-c): these signals have a default
  std::raise(signal);            // NOLINT(cert-err33-c): it ends the program
}

/// Signals that the caller's parent ignores, as nohup does, stay ignored.
void handle_ending_signals() {
  for (const int signal : ending_signals) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler != SIG_IGN) {
      std::signal(signal, remove_and_end);  // NOLINT(cert-err33-c): these can be handled
    }
  }
}

/// Holds the ending signals back while a file and what is known of it change together.
class held_signals {
 public:
  held_signals() {
    sigset_t ending;
    sigemptyset(&ending);
    for (const int signal : ending_signals) {
      sigaddset(&ending, signal);
    }
    ::sigprocmask(SIG_BLOCK, &ending, &before_);
  }
  held_signals(const held_signals&) = delete;
  held_signals& operator=(const held_signals&) = delete;
  ~held_signals() { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }

 private:
  sigset_t before_{};
};

/// The file that a path means, after its symbolic links. The last one may lead nowhere yet.
std::string target_of(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::weakly_canonical(path, error);
  return error ? path : target.string();
}

/// Returns 0 for a missing or regular file, and sets its permissions if it exists; otherwise an
/// errno.
int permissions_at(const std::string& path, std::optional<mode_t>& permissions) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    return errno == ENOENT ? 0 : errno;
  }
  if (!S_ISREG(status.st_mode)) {
    return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
  }
  permissions = status.st_mode & 07777;
  return 0;
}

}  // namespace

replacement_file::~replacement_file() {
  if (!path_.empty()) {
    const held_signals until_it_is_known;
    ::unlink(path_.c_str());
    forget();
  }
}

void replacement_file::forget() {
  std::ranges::replace(temporary_paths, path_.c_str(), static_cast<const char*>(nullptr));
  path_.clear();
}

int replacement_file::create(const std::string& path) {
  target_ = target_of(path);
  std::optional<mode_t> permissions;
  if (const int error = permissions_at(target_, permissions); error != 0) {
    return error;
  }
  const held_signals until_it_is_known;
  constexpr int most_attempts = 100;
  for (int attempt = 0; attempt < most_attempts; ++attempt) {
    std::string name =
        target_ + ".tmp" + std::to_string(::getpid()) + "." + std::to_string(attempt);
    handle = open_at(AT_FDCWD, name, O_WRONLY | O_CREAT | O_EXCL);
    if (handle.is_open()) {
      path_ = std::move(name);
      *std::ranges::find(temporary_paths, nullptr) = path_.c_str();
      handle_ending_signals();
      return permissions && ::fchmod(handle.descriptor(), *permissions) != 0 ? errno : 0;
    }
    if (errno != EEXIST) {
      return errno;
    }
  }
  return EEXIST;
}

int replacement_file::put_in_place(bool sync) {
  {
    const held_signals until_it_is_known;
    if (std::rename(path_.c_str(), target_.c_str()) != 0) {
      return errno;
    }
    forget();
  }
  if (!sync) {
    return 0;
  }
  const std::string folder = std::filesystem::path(target_).parent_path().string();
  return sync_file(open_at(AT_FDCWD, folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY));
}

int sync_file(const file_handle& file) {
  // EINVAL: a file system that has nothing to synchronise.
  return file.is_open() && (::fsync(file.descriptor()) == 0 || errno == EINVAL) ? 0 : errno;
}

int replace_file(const std::string& path, std::string_view content) {
  replacement_file file;
  if (const int error = file.create(path); error != 0) {
    return error;
  }
  const auto bytes = std::as_bytes(std::span(content));
  if (write_bytes(file.handle, bytes) < bytes.size()) {
    return errno;
  }
  return file.put_in_place(false);
}

}  // namespace morvane::companion
