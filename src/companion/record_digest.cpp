#include "companion/record_digest.h"

#include <cstddef>
#include <span>

#include "companion/digest.h"
#include "format/records.h"

namespace morvane::companion {

namespace {

/// Adds a part of the package, which the view knows to be whole.
void add_part(byte_digest& digest, const morvane_view& package, std::size_t offset,
              std::size_t size) {
  digest.add(std::as_bytes(std::span(package.bytes, package.size)).subspan(offset, size));
}

}  // namespace

std::string record_digest(const morvane_view& package, const morvane_view_dvi& dvi) {
  byte_digest digest;
  const std::size_t ports = std::size_t{dvi.input_num} + dvi.output_num;
  add_part(digest, package, dvi.offset, sizeof(dvi_desc));
  add_part(digest, package, dvi.block, ports * sizeof(port_desc));
  if (morvane_view_need_vproc(&package) == MORVANE_VIEW_OK) {
    add_part(digest, package, dvi.vproc_offset, sizeof(vproc_desc));
    add_part(digest, package, dvi.vproc_block, dvi.vproc_records_size);
  }
  return digest.text();
}

}  // namespace morvane::companion
