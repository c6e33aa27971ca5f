// A package, opened. A damaged one is open up to its first damage.
#pragma once

#include <morvane/package_view.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "cli/output/console.h"
#include "cli/package/package_bytes.h"

namespace morvane::cli {

struct opened_package {
  std::string path{};
  package_bytes bytes{};
  morvane_view view{};
  morvane_view_damage damage{};  // with status MORVANE_VIEW_OK when there is none
};

/// Reads and opens a package. Returns 0, or the errno of the failure to read it.
int open_package(const std::string& path, opened_package& package);

/// The same, and says what cannot be read. Returns status_fine or status_failed.
int open_or_report(const std::string& path, opened_package& package);

/// Opens the bytes that a package has.
void open_bytes(opened_package& package);

/// Whether the package cannot be walked to its end.
inline bool is_damaged(const opened_package& package) {
  return package.damage.status != MORVANE_VIEW_OK;
}

/// Tells the user, if the package is damaged and unless quiet is asked for, that only what comes
/// before the damage is compared, shown or whatever the participle says.
void warn_of_damage(const opened_package& package, std::string_view participle, console& streams);

/// Whether the package is long enough for its header.
inline bool has_header(const opened_package& package) {
  return package.view.size >= sizeof(morvane_pkg_header);
}

/// The work on a DVI is done: gives back the memory of its ports, image, variables and SMB blocks.
/// Returns the offset at which its DVI block ends.
std::uint64_t release_dvi(const opened_package& package, const morvane_view_dvi& dvi);

/// The bytes of a DVI's image.
std::span<const std::uint8_t> image_of(const morvane_view& view, const morvane_view_dvi& dvi);

}  // namespace morvane::cli
