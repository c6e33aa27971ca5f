// The interface of the fuzz targets. A target is one function. The fuzzer, or the replay of the
// corpus, calls it with one input after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Runs operations of the tool on an input. Returns 0. A broken promise ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace morvane::test {

inline std::string_view text_of_input(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the process and prints the promise, if it does not hold.
void require(bool holds, const char* promise);

}  // namespace morvane::test
