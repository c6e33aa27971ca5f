// The files of a pack run, and whether they stay as they are.
#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

#include "driver/pack_sections.h"

namespace morvane::companion {

/// The paths of all files to pack: every image, and its header behind it.
std::vector<std::string> input_paths(const pack_inputs& inputs);

/// What tells that a file was changed: which file it is, its size and its times.
struct file_state {
  file_identity identity{};
  off_t size = 0;
  timespec modified{};
  timespec changed{};
};

/// The states of files in the order of their paths.
struct file_states {
  std::vector<file_state> states{};
  std::string failed{};  // the first path that is no regular file or cannot be looked at
  int error = 0;         // its errno; EINVAL for what is no regular file
};

file_states states_of(const std::vector<std::string>& paths);

/// The path of the first file whose state is another now; empty when all are as they were.
std::string changed_file(const std::vector<std::string>& paths, const file_states& before);

}  // namespace morvane::companion
