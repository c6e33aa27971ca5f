// The rules about a DVI as a whole: its image, its address range, its size.
#pragma once

#include "companion/input_states.h"
#include "companion/lint/header_findings.h"
#include "companion/lint/header_reading.h"

namespace morvane::companion {

/// Adds what is wrong with the image, as the header describes it.
void judge_image(const header_reading& reading, const file_state& image, header_findings& findings);

/// Adds what is wrong with the addresses and with the size of the block.
void judge_block(const header_reading& reading, bool with_notes, header_findings& findings);

}  // namespace morvane::companion
