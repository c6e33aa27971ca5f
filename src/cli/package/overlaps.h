// Ranges of bytes that overlap.
#pragma once

#include <morvane/package_view.h>

#include <cstdint>
#include <string>
#include <vector>

namespace morvane::cli {

/// The bytes from begin to end, the end excluded, that somebody uses.
struct used_range {
  std::uint32_t owner = 0;
  std::uint64_t begin = 0;
  std::uint64_t end = 0;
};

/// The range of an image in the memory plan, from its address and size.
constexpr used_range image_range(std::uint32_t owner, std::uint32_t address, std::uint32_t size) {
  return {.owner = owner, .begin = address, .end = std::uint64_t{address} + size};
}

constexpr bool is_inside(std::uint64_t address, const used_range& range) {
  return address >= range.begin && address < range.end;
}

/// "64 bytes from 0x1000 on"
std::string range_text(const used_range& range);

/// The addresses of a DVI's image in the memory plan. The owner is the DVI.
used_range image_range(const morvane_view_dvi& dvi);

/// The bytes that each port of a DVI uses. The owner is the port's position, inputs first.
std::vector<used_range> port_ranges(const morvane_view& view, const morvane_view_dvi& dvi);

/// The stretches of bytes that ranges use, in order, each as long as it can be and of no owner.
std::vector<used_range> merged(std::vector<used_range> ranges);

/// Two owners that share bytes.
struct overlap {
  used_range one;
  used_range other;  // owner of a greater number
};

/// The bytes that both use.
used_range shared_part(const overlap& both);

/// Names at least one partner for every owner whose range overlaps another; fewer overlaps than
/// ranges. One is enough to tell that an owner shares its bytes, and all pairs could be as many as
/// the square of the ranges. Empty ranges overlap nothing. In the order of the greater owner.
std::vector<overlap> find_overlaps(std::vector<used_range> ranges);

}  // namespace morvane::cli
