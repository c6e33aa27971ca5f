#include "cli/lint/rules/comparison.h"

#include "cli/output/printable_text.h"
#include "headers/port_descriptions.h"

namespace morvane::cli {

void report_cause(comparison& header, header_finding found) {
  const auto [known, is_new] = header.causes.try_emplace(found.place, header.findings.size());
  if (is_new) {
    header.findings.push_back(std::move(found));
  } else {
    add_effect(header.findings[known->second], std::move(found));
  }
}

void report_at_cause(comparison& header, std::size_t cause, std::string text,
                     header_finding effect) {
  if (!header.causes.contains(cause)) {
    effect.place = cause;
    effect.text = std::move(text);
    return report_cause(header, std::move(effect));
  }
  add_effect(header.findings[header.causes[cause]], std::move(effect));
}

std::span<const std::byte> empty_record(object_kind kind) {
  static constexpr port_desc port = empty_port();
  static constexpr dvi_desc others{};  // all 0, and larger than the records of the other kinds
  const bool is_port = kind == object_kind::input || kind == object_kind::output;
  return is_port ? bytes_of(port) : bytes_of(others);
}

std::string block_title(object_kind kind, const parsed_block& block) {
  return kind == object_kind::dag ? "the DAG" : joined(name_of(kind), " ", printable(block.name));
}

const parsed_block* block_above(const comparison& header, macro_family family, std::size_t place,
                                object_kind& kind) {
  const parsed_block* last = nullptr;
  for (const object_kind each : header.kinds) {
    const auto& blocks = header.reading.of(each).blocks;
    const auto behind =
        std::ranges::upper_bound(blocks, header.reading.header.data() + place, {},
                                 [](const parsed_block& block) { return block.name.data(); });
    if (family_of(each) != family || behind == blocks.begin()) {
      continue;
    }
    const parsed_block& block = behind[-1];
    if (last == nullptr || last->name.data() < block.name.data()) {
      last = &block;
      kind = each;
    }
  }
  return last;
}

bool is_behind_stop(const comparison& header, object_kind kind, std::size_t place) {
  const kind_reading& reading = header.reading.of(kind);
  return reading.is_stopped && place >= reading.stop;
}

std::string line_title(comparison& header, std::size_t place) {
  return joined("line ", header.lines.line(place));
}

}  // namespace morvane::cli
