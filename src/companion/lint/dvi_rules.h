// The rules about a DVI as a whole: its image, its address range, its size.
#pragma once

#include <string>

#include "companion/input_states.h"
#include "companion/lint/header_findings.h"
#include "companion/lint/header_reading.h"

namespace morvane::companion {

/// An image file.
struct image_file {
  int error = 0;           // the errno of an image that cannot be opened
  std::uint64_t size = 0;  // bytes; of a device at most as many as are wanted
  file_state state{};
};
image_file look_at_image(const std::string& path, std::uint32_t wanted);

/// Adds what is wrong with the image, as the header describes it.
void judge_image(const header_reading& reading, const image_file& image, header_findings& findings);

/// Adds what is wrong with the addresses and with the size of the block.
void judge_block(const header_reading& reading, bool with_notes, header_findings& findings);

}  // namespace morvane::companion
