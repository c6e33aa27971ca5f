// The length limits of texts, and the names of the limits in messages.
#pragma once

#include <cstddef>
#include <string_view>

#include "format/records.h"

namespace morvane {

struct length_limit {
  std::string_view name;
  std::size_t longest;  // bytes
};

inline constexpr length_limit line_limit{"LINE_LEN", 1023};
inline constexpr length_limit file_name_limit{"FILENAME", 127};
inline constexpr length_limit var_name_limit{"VAR_NAME", MORVANE_NAME_WIDTH - 1};
inline constexpr length_limit io_name_limit{"IO_NAME", MORVANE_IO_NAME_WIDTH - 1};
inline constexpr length_limit layer_name_limit{"IO_DEMNGL_NAME", MORVANE_IO_NAME_WIDTH - 1};

/// The longest name of a file or folder in an option, in bytes.
inline constexpr std::size_t longest_setting = 2048;

}  // namespace morvane
