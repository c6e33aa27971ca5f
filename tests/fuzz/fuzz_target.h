// What the fuzz targets share. A target is one function; the fuzzer, or the replay of the corpus,
// calls it with one input after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Runs the tool's operations on an input. Returns 0; a broken promise ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace morvane::test {

inline std::string_view text_of_input(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the process, and names the promise, when it does not hold.
void require(bool holds, const char* promise);

}  // namespace morvane::test
