// Writes a package front to back, through one buffer that images pass through as well.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "format/records.h"
#include "io/file.h"

namespace morvane {

/// A package on its way to its file. Bytes wait in the buffer until it is full.
struct package_writer {
  file_handle file;
  std::vector<std::byte> buffer = std::vector<std::byte>(chunk_size);
  std::size_t waiting = 0;    // bytes in the buffer
  std::uint64_t written = 0;  // bytes in the file
};

/// Appends bytes to the package.
void append_bytes(package_writer& package, std::span<const std::byte> bytes);

/// Appends a list of records to the package as one block of bytes.
template <class Record>
void append_records(package_writer& package, const std::vector<Record>& records) {
  append_bytes(package, std::as_bytes(std::span(records)));
}

/// Appends the first count bytes of a file. Returns 0; or -1, with nothing of the file in the
/// package, after the message "can't open file ..." or, when the file has fewer bytes, "error: fail
/// to read ...".
int read_file_bytes(package_writer& package, const std::string& path, std::int32_t count);

/// Writes what waits in the buffer and closes the file.
void close_package(package_writer& package);

}  // namespace morvane
