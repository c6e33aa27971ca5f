// A package that is shown, and what the user wants to see of it.
#pragma once

#include <morvane/package_view.h>

#include <span>
#include <string>

#include "companion/console.h"
#include "companion/package_bytes.h"

namespace morvane::companion {

struct shown_package {
  std::string path{};
  bool with_digests = false;
  package_bytes bytes{};
  morvane_view view{};
  morvane_view_damage damage{};  // with status MORVANE_VIEW_OK when there is none
};

/// Whether the package is long enough for its header.
bool has_header(const shown_package& shown);

/// The bytes of a DVI's image.
std::span<const std::uint8_t> image_of(const shown_package& shown, const morvane_view_dvi& dvi);

/// The digest of an image.
std::string digest_of(const shown_package& shown, std::span<const std::uint8_t> image);

/// A DVI was shown: gives back its memory and tells how far the work has come.
void leave_dvi(const shown_package& shown, const morvane_view_dvi& dvi, console& streams);

}  // namespace morvane::companion
