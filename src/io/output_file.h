// Files that a program creates in a folder of its own. What stands in a file's place is removed,
// never written into: it may be a link, a pipe or a device, or have another name elsewhere.
#pragma once

#include <string>

#include "io/file.h"

namespace morvane {

/// Opens a folder for the functions below. They reach the folder that was opened, whatever takes
/// its path later. The handle is closed when the folder cannot be opened.
file_handle open_folder(const std::string& path);

/// A file that was created in a folder, as it was left.
struct created_file {
  file_identity identity{};
  std::uint64_t size = 0;  // bytes
};

/// Creates a file in a folder, in place of what stands there. A regular file that the system does
/// not remove is emptied and used, when it has no other name. The handle is closed when a folder or
/// the kept file stands there, or the file cannot be created.
file_handle create_file(const file_handle& folder, const std::string& name,
                        const file_identity& kept);

/// Opens a created file to write at its end. The handle is closed when another file stands in its
/// place, or it changed since, or has got another name.
file_handle reopen_file(const file_handle& folder, const std::string& name,
                        const created_file& created);

/// Removes what stands under a name in a folder. Returns whether it did: a folder and the kept file
/// stay.
bool remove_file(const file_handle& folder, const std::string& name, const file_identity& kept);

}  // namespace morvane
