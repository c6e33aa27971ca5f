// How two packages differ, one difference at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <variant>

#include "cli/diff/byte_difference.h"
#include "cli/package/record_fields.h"

namespace morvane::cli {

/// A record by its name. Of records with one name, the n-th of the old package is compared with the
/// n-th of the new one.
struct named_record {
  std::string_view name{};       // lies in a package
  std::uint32_t occurrence = 1;  // 2 for the second record with the name
  // NOLINTNEXTLINE(modernize-use-nullptr): the check takes a comparison with 0 for a pointer
  auto operator<=>(const named_record&) const = default;
};

/// A part of a package: its DVI, and the record of the DVI if it is one.
struct compared_part {
  object_kind kind = object_kind::package;
  named_record dvi{};
  named_record record{};
};

/// Positions are those among the records of their kind, from 0.
struct appeared {
  std::uint32_t new_position;
};
struct vanished {
  std::uint32_t old_position;
};
struct moved {
  std::uint32_t old_position;
  std::uint32_t new_position;
};
struct field_change {
  std::string_view field;
  field_value old_value;
  field_value new_value;
};

/// Only bytes after the NUL of a text differ.
struct hidden_change {};

struct difference {
  compared_part part;
  std::variant<appeared, vanished, moved, field_change, hidden_change, byte_difference> change;
};

/// Takes the differences one after the other, as they are found.
using difference_sink = std::function<void(const difference&)>;

}  // namespace morvane::cli
