#include "companion/shown_package.h"

#include "companion/digest.h"

namespace morvane::companion {

bool has_header(const shown_package& shown) {
  return shown.bytes.bytes().size() >= sizeof(morvane_pkg_header);
}

std::span<const std::uint8_t> image_of(const shown_package& shown, const morvane_view_dvi& dvi) {
  morvane_bytes image{.bytes = shown.view.bytes, .size = 0};
  static_cast<void>(morvane_view_image(&shown.view, &dvi, &image));
  return {image.bytes, image.size};
}

std::string digest_of(const shown_package& shown, std::span<const std::uint8_t> image) {
  return xxh3_128(shown.bytes, image);
}

void leave_dvi(const shown_package& shown, const morvane_view_dvi& dvi, console& streams) {
  const auto image = image_of(shown, dvi);
  const auto bytes = shown.bytes.bytes();
  const auto end = static_cast<std::size_t>(image.data() + image.size() - bytes.data());
  shown.bytes.release(bytes.subspan(dvi.block, end - dvi.block));
  if (dvi.vproc_offset != 0) {
    shown.bytes.release(bytes.subspan(dvi.vproc_block, dvi.vproc_records_size));
  }
  show_progress(streams.progress, end);
}

}  // namespace morvane::companion
