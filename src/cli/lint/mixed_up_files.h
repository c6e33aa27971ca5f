// Headers that lie beside the image of another DVI.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "cli/findings/findings.h"
#include "cli/lint/folder_rules.h"

namespace morvane::cli {

/// The images of a folder by their names without the extension, which lie in the list.
using image_stems = std::unordered_map<std::string_view, std::uint32_t>;

image_stems stems_of(const input_list& dvis);

/// No position of a DVI.
inline constexpr std::uint32_t no_dvi = std::numeric_limits<std::uint32_t>::max();

/// The DVI whose image has the DAG's name, for the header of one at a position: its own also if the
/// name is that of the whole network. no_dvi if there is none, which says nothing: compilers may
/// name DAGs in another way than files.
std::uint32_t named_dvi(const folder_reading& files, const image_stems& stems,
                        std::string_view dag_name, std::uint32_t position);

/// What the header of a DVI says about whose it is.
struct header_claim {
  std::uint32_t named = no_dvi;
  bool fits = false;        // its image has the size that it says
  bool fits_named = false;  // the image of the named DVI has
  std::string dag_name{};
  finding_place place{};  // of the name
};

/// Which headers certainly lie beside the image of another DVI: those that name a DVI whose own
/// header names it too, and those that name each other in a circle, unless the files are only
/// renamed: then every image has the size that its header says, and not every one the size that the
/// header with its name says. A header that is the last of a row names no DVI of the folder: then
/// the compiler counts DAGs in another way than files. For each DVI, gives the first DVI of those
/// with the same cause, and no_dvi if nothing is mixed up.
std::vector<std::uint32_t> find_mixed_up(const std::vector<header_claim>& claims);

/// What is wrong with a header that is mixed up: whose it is, and whether both were exchanged.
std::string mixed_up_text(const folder_reading& files, const std::vector<header_claim>& claims,
                          std::uint32_t position);

}  // namespace morvane::cli
