#include "cli/lint/rules/incomplete_ports.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <map>

#include "cli/lint/rules/value_rules.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// Whether the block that is being read is that of a bit vector.
bool holds_bit_vector(comparison& header, object_kind kind) {
  return std::ranges::any_of(header.cursor(kind).rows, [](const row_state& state) {
    const own_definition& own = state.own;
    return own.row != nullptr && own.row->mask == MORVANE_PORT_BITVECTOR && own.word != "0";
  });
}

/// Whether a block is incomplete without a macro. Flags, their offsets and names of layers are
/// often left out, and of a bit vector what it does not have.
bool is_needed(object_kind kind, const macro_row& row, bool is_bit_vector) {
  constexpr std::array<std::string_view, 3> of_bit_vectors{"_dbase_byte_offset", "_W",
                                                           "_dram_size_num_bytes"};
  constexpr std::array<std::string_view, 3> seldom{"_use_ping_pong_vmem", "_qubrix_demangled_name",
                                                   "_is_bitvector"};
  if (row.kind == macro_kind::guarded_bit || row.suffix.ends_with("_bit_offset") ||
      std::ranges::find(seldom, row.suffix) != seldom.end()) {
    return false;
  }
  return family_of(kind) != macro_family::port || !is_bit_vector ||
         std::ranges::find(of_bit_vectors, row.suffix) != of_bit_vectors.end();
}

/// The macros that a block needs, a bit for each row.
std::uint64_t needed_rows(comparison& header, object_kind kind) {
  const std::span<const macro_row> macros = macros_of(kind);
  const bool is_bit_vector = holds_bit_vector(header, kind);
  std::uint64_t rows = 0;
  for (std::size_t i = 0; i < macros.size(); ++i) {
    rows |= is_needed(kind, macros[i], is_bit_vector) ? std::uint64_t{1} << i : 0;
  }
  return rows;
}

/// The macros whose defaults are worth a note, a bit for each row. Of a port only those of its
/// place and its size are: the rest is told where other ports have it.
std::uint64_t noted_rows(object_kind kind) {
  if (family_of(kind) != macro_family::port) {
    return ~std::uint64_t{0};
  }
  std::uint64_t rows = 0;
  for (std::size_t i = 0; i < port_macros.size(); ++i) {
    const std::size_t offset = port_macros.at(i).offset;
    const bool is_noted =
        offset == offsetof(port_desc, port_byte_offset) || offset == offsetof(port_desc, port_size);
    rows |= is_noted ? std::uint64_t{1} << i : 0;
  }
  return rows;
}

/// "_W (0), _sign (255)"
std::string defaults_text(object_kind kind, std::uint64_t rows) {
  const std::span<const macro_row> macros = macros_of(kind);
  std::string text;
  for (std::size_t i = 0; i < macros.size(); ++i) {
    if ((rows >> i & 1U) != 0) {
      append_pieces(text, text.empty() ? "" : ", ", macros[i].suffix, " (",
                    default_value(macros[i], empty_record(kind)), ")");
    }
  }
  return text;
}

/// The ports with the same needs: how many there are, and how many of them have each macro.
struct like_ports {
  std::size_t count = 0;
  std::array<std::size_t, port_macros.size()> having{};
};

/// The macros that a port needs and that all others like it have.
std::uint64_t common_rows(const like_ports& like, const port_macros_taken& port) {
  std::uint64_t rows = 0;
  for (std::size_t i = 0; like.count > 1 && i < port_macros.size(); ++i) {
    const std::uint64_t row = std::uint64_t{1} << i;
    const std::size_t others = like.having.at(i) - ((port.block->taken & row) != 0 ? 1 : 0);
    rows |= others == like.count - 1 ? row & port.needed : 0;
  }
  return rows;
}

/// Whether macros of ports are known to be somewhere else than in their blocks.
bool has_lost_macros(const comparison& header) {
  static constexpr std::array kinds{kind_of("wrong-name"), kind_of("outside-any-block"),
                                    kind_of("missing-block"), kind_of("block-ends")};
  return std::ranges::any_of(header.findings, [](const header_finding& found) {
    return std::ranges::find(kinds, found.kind) != kinds.end();
  });
}

/// The places of the findings that are no notes, in their order.
std::vector<std::size_t> places_of_findings(const comparison& header) {
  std::vector<std::size_t> places;
  for (const header_finding& found : header.findings) {
    if (level_of(found) != severity::note) {
      places.push_back(found.place);
    }
  }
  std::ranges::sort(places);
  return places;
}

/// Whether something is told about the lines of a block, which is why macros are missing.
bool has_finding(const std::vector<std::size_t>& places, const comparison& header,
                 const parsed_block& block) {
  const auto first = std::ranges::lower_bound(places, header.place_of(block.name));
  return first != places.end() && *first < header.reading.header.find('\n', block.end);
}

std::map<std::uint64_t, like_ports> ports_by_needs(const comparison& header) {
  std::map<std::uint64_t, like_ports> all;
  for (const port_macros_taken& port : header.ports) {
    like_ports& like = all[port.needed];
    ++like.count;
    for (std::size_t i = 0; i < port_macros.size(); ++i) {
      like.having.at(i) += port.block->taken >> i & 1U;
    }
  }
  return all;
}

}  // namespace

void check_defaults(comparison& header, object_kind kind) {
  const std::size_t next = header.cursor(kind).next_block;
  if (next == 0) {
    return;
  }
  const parsed_block& block = header.reading.of(kind).blocks[next - 1];
  const std::uint64_t needed = needed_rows(header, kind);
  if (family_of(kind) == macro_family::port) {
    header.ports.push_back({.kind = kind, .block = &block, .needed = needed});
  }
  const std::uint64_t missing = needed & ~block.taken & noted_rows(kind);
  if (header.with_notes && missing != 0) {
    report(header, kind_of("default-used"), header.place_of(block.name),
           joined(block_title(kind, block), " has no macro for ", defaults_text(kind, missing)));
  }
}

void check_incomplete_ports(comparison& header) {
  constexpr int enough = 6;  // so many common macros say that the ports are alike
  if (has_lost_macros(header)) {
    return;
  }
  const std::vector<std::size_t> places = places_of_findings(header);
  const auto all = ports_by_needs(header);
  for (const port_macros_taken& port : header.ports) {
    const parsed_block& block = *port.block;
    const std::uint64_t common = common_rows(all.at(port.needed), port);
    const std::uint64_t missing = common & ~block.taken;
    if (std::popcount(common) < enough || missing == 0 || has_finding(places, header, block)) {
      continue;
    }
    const std::string what = block.taken == 0 ? "s: its line may be a remark"
                                              : joined(" for ", defaults_text(port.kind, missing),
                                                       ", but the other ports have");
    report(header, kind_of("missing-macro"), header.place_of(block.name),
           joined(block_title(port.kind, block), " has no macro", what));
  }
}

}  // namespace morvane::cli
