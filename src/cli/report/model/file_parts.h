// The parts of a package in the order of the file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/package/opened_package.h"

namespace morvane::cli {

/// A stretch of the file.
struct file_part {
  std::uint64_t offset = 0;
  std::uint64_t size = 0;
  std::string_view kind;             // the class of its colour: head, ports, image, vproc or rest
  std::string name;                  // "image of DVI 3"
  std::optional<std::uint32_t> dvi;  // whose ports, image or vproc block it is; the first of some
  std::uint32_t joined_dvis = 0;     // whose ports and images are joined in it
};

/// The header, the DVI table, of each DVI its ports and image, the vproc table, the vproc blocks,
/// and what cannot be reached. Parts without bytes are left out.
std::vector<file_part> parts_of(const opened_package& package);

/// The parts of a package of so many DVIs, with those of DVIs that follow one another joined: at
/// most so many and few more.
std::vector<file_part> joined_parts(const std::vector<file_part>& parts, std::uint32_t dvis,
                                    std::uint32_t most);

}  // namespace morvane::cli
