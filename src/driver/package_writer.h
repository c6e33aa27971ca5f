// Writes a package from front to back through one buffer. Large images are copied by the system.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "format/records.h"
#include "io/file.h"

namespace morvane {

/// Is told, after each part of a package, how many bytes are written.
struct write_watch {
  void (*tell)(void* state, std::uint64_t written) = nullptr;
  void* state = nullptr;
};

/// A package that is being written. Bytes stay in the buffer until it is full.
struct package_writer {
  file_handle file;
  std::vector<std::byte> buffer = std::vector<std::byte>(chunk_size);
  std::size_t waiting = 0;    // bytes in the buffer
  std::uint64_t written = 0;  // bytes in the file
  int write_error = 0;        // errno of the first write that failed
  int read_error = 0;         // errno of a file to append that could not be opened or read
  write_watch watch{};
};

/// Appends bytes to the package.
void append_bytes(package_writer& package, std::span<const std::byte> bytes);

/// Appends a list of records to the package as one block of bytes.
template <class Record>
void append_records(package_writer& package, const std::vector<Record>& records) {
  append_bytes(package, std::as_bytes(std::span(records)));
}

/// Appends the first count bytes of a file. Returns 0. On failure it appends nothing, prints "can't
/// open file ..." or, if the file has fewer bytes, "error: fail to read ...", and returns -1.
int read_file_bytes(package_writer& package, const std::string& path, std::int32_t count);

/// Writes the rest of the buffer.
void flush_package(package_writer& package);

/// Writes the rest of the buffer and closes the file.
void close_package(package_writer& package);

}  // namespace morvane
