#include "cli/lint/rules/comparison.h"

#include "cli/output/printable_text.h"
#include "headers/port_descriptions.h"

namespace morvane::cli {

std::span<const std::byte> empty_record(object_kind kind) {
  static constexpr port_desc port = empty_port();
  static constexpr dvi_desc others{};  // all 0, and larger than the records of the other kinds
  const bool is_port = kind == object_kind::input || kind == object_kind::output;
  return is_port ? bytes_of(port) : bytes_of(others);
}

std::string block_title(object_kind kind, const parsed_block& block) {
  return kind == object_kind::dag ? "the DAG" : joined(name_of(kind), " ", printable(block.name));
}

std::string line_title(comparison& header, std::size_t place) {
  return joined("line ", header.lines.line(place));
}

}  // namespace morvane::cli
