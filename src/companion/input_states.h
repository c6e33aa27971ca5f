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
  int error =
      0;  // the errno of a file that cannot be looked at; EINVAL for what is no regular file
};

/// The state of an open file.
file_state state_of(const file_handle& file);

/// The states of files in the order of their paths.
using file_states = std::vector<file_state>;

/// The path of the first file whose state is another now, or cannot be told; empty when all are as
/// they were.
std::string changed_file(const std::vector<std::string>& paths, const file_states& before);

}  // namespace morvane::companion
