// Output files in a folder. An existing file of the same name is removed, never written into: it
// may be a link, a pipe or a device, or have another name elsewhere.
#pragma once

#include <string>

#include "io/file.h"

namespace morvane {

/// Opens a folder for the functions below. They use this folder even if its path names another one
/// later. The handle is closed if the folder cannot be opened.
file_handle open_folder(const std::string& path);

/// A file that create_file created, and its size after the last write.
struct created_file {
  file_identity identity{};
  std::uint64_t size = 0;  // bytes
};

/// Creates a file in a folder and replaces an existing one. A regular file that cannot be removed
/// is emptied and used if it has no other name. The handle is closed if the name belongs to a
/// folder or to the kept file, or the file cannot be created.
file_handle create_file(const file_handle& folder, const std::string& name,
                        const file_identity& kept);

/// Opens a created file to append to it. The handle is closed if the name belongs to another file
/// now, or if the file has another size or a second name.
file_handle reopen_file(const file_handle& folder, const std::string& name,
                        const created_file& created);

/// Removes a file, or with_folders an empty folder, from a folder. Returns whether it did. The kept
/// file is not removed.
bool remove_entry(const file_handle& folder, const std::string& name, const file_identity& kept,
                  bool with_folders);

}  // namespace morvane
