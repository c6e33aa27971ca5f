// The rules about a DVI as a whole: its image, its address range, its size.
#pragma once

#include "cli/lint/header/header_findings.h"
#include "cli/lint/header/header_reading.h"
#include "cli/lint/input_states.h"

namespace morvane::cli {

/// Adds what is wrong with the image, as the header describes it.
void check_image(const header_reading& reading, const file_state& image, header_findings& findings);

/// Adds what is wrong with the addresses and with the size of the block.
void check_block(const header_reading& reading, bool with_notes, header_findings& findings);

}  // namespace morvane::cli
