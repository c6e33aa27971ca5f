#include "companion/shown_package.h"

#include "companion/digest.h"

namespace morvane::companion {

bool has_header(const shown_package& shown) {
  return shown.bytes.bytes().size() >= sizeof(morvane_pkg_header);
}

std::span<const std::uint8_t> image_of(const shown_package& shown, const morvane_view_dvi& dvi) {
  morvane_bytes image{};
  const bool is_there = morvane_view_image(&shown.view, &dvi, &image) == MORVANE_VIEW_OK;
  return {is_there ? image.bytes : shown.view.bytes, is_there ? image.size : 0};
}

std::string digest_of(const shown_package& shown, std::span<const std::uint8_t> image) {
  return xxh3_128(shown.bytes, image);
}

void leave_dvi(const shown_package& shown, const morvane_view_dvi& dvi, console& streams) {
  const std::uint64_t ports = std::uint64_t{dvi.input_num} + dvi.output_num;
  const std::uint64_t count = ports * sizeof(morvane_port_desc) + dvi.dvi_img_size;
  shown.bytes.release(dvi.block, count);
  shown.bytes.release(dvi.vproc_block, dvi.vproc_records_size);
  show_progress(streams.progress, dvi.block + count);
}

}  // namespace morvane::companion
