// The files of a pack run, and whether they stay as they are.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <vector>

#include "cli/files/atomic_replacement.h"
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
/// folder is EISDIR, that of a device ENOTBLK, that of a pipe ESPIPE.
readable_file open_input(const std::string& path, file_state& state);

/// Whether a file that is to be written would take the place of an image or a header in a folder,
/// or become one.
bool is_in_folder(const std::string& folder, const atomic_replacement& file);

/// "a folder": what is in the place of a file to pack; empty for a regular file, and for one that
/// cannot be looked at.
std::string_view type_of_file(const std::string& path);

/// "the file cannot be read: Permission denied", for the error of a file, or a folder, to pack.
std::string unreadable_text(std::string_view what, int error);

/// The states of files in the order of their paths.
using file_states = std::vector<file_state>;

/// The path of the first file whose state is another now, or cannot be told; empty when all are as
/// they were.
std::string changed_file(const std::vector<std::string>& paths, const file_states& before);

}  // namespace morvane::cli
