// The files of a pack run, and whether they stay as they are.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <vector>

#include "driver/pack_sections.h"

namespace morvane::cli {

/// The paths of all files to pack: every image, and its header behind it.
std::vector<std::string> input_paths(const pack_inputs& inputs);

/// What tells that a file was changed: which file it is, its size and its times.
struct file_state {
  file_identity identity{};
  off_t size = 0;
  timespec modified{};
  timespec changed{};
  int error = 0;  // why the file cannot be packed, an errno
};

/// Opens a file to pack and sets its state. Only a regular file can be packed: the error of a
/// folder is EISDIR, that of a device or a pipe EINVAL.
readable_file open_input(const std::string& path, file_state& state);

/// "the file cannot be read: Permission denied", for the error of a file, or a folder, to pack.
std::string unreadable_text(std::string_view what, int error);

/// The states of files in the order of their paths.
using file_states = std::vector<file_state>;

/// The path of the first file whose state is another now, or cannot be told; empty when all are as
/// they were.
std::string changed_file(const std::vector<std::string>& paths, const file_states& before);

}  // namespace morvane::cli
