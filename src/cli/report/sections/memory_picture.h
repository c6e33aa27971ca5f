// The memory plan: images by their addresses, and the bytes that the ports of each DVI use.
#pragma once

#include "cli/report/html/page_output.h"
#include "cli/report/model/page_content.h"

namespace morvane::cli {

/// Writes the images on an axis of addresses.
void write_images(const page_content& content, page_output& out);

/// Writes the ports of each DVI on an axis of byte offsets that all DVIs share.
void write_port_bytes(const page_content& content, page_output& out);

}  // namespace morvane::cli
