#include "cli/package/port_flow.h"

#include <algorithm>
#include <array>
#include <string>
#include <tuple>

#include "cli/output/printable_text.h"
#include "io/message.h"

namespace morvane::cli {

namespace {

/// Places of fields in a port_flow. The first four are the dims.
constexpr std::size_t dims_end = 4;
constexpr std::size_t datasize_at = 6;
constexpr std::size_t size_at = 9;
constexpr std::size_t offset_at = 10;

}  // namespace

used_range port_bytes(const port_flow& flow) {
  const auto begin = static_cast<std::uint64_t>(flow.at(offset_at));
  return {.begin = begin, .end = begin + static_cast<std::uint64_t>(flow.at(size_at))};
}

std::uint64_t needed_bytes(const port_flow& flow) {
  constexpr std::int64_t not_given = 0xFF;
  constexpr double too_many_bits = 9e18;
  auto bits = static_cast<double>(flow.at(datasize_at) == not_given ? 0 : flow.at(datasize_at));
  for (std::size_t i = 0; i < dims_end; ++i) {
    bits *= static_cast<double>(flow.at(i));
  }
  return (static_cast<std::uint64_t>(std::min(bits, too_many_bits)) + 7) / 8;
}

std::string dims_text(const port_flow& flow) {
  return joined(flow[0], " x ", flow[1], " x ", flow[2], " x ", flow[3], " values of ",
                count_of(static_cast<std::uint64_t>(flow.at(datasize_at)), "bit"));
}

std::string flow_differences(const port_flow& input, const port_flow& output) {
  constexpr std::array<std::string_view, std::tuple_size_v<port_flow>> fields{
      "P",        "D",         "H",       "W",         "dram_format",     "sign",
      "datasize", "expoffset", "expbits", "port_size", "port_byte_offset"};
  std::string text;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (input.at(i) != output.at(i)) {
      append_pieces(text, text.empty() ? "" : "; ", fields.at(i), " is ", input.at(i), ", not ",
                    output.at(i));
    }
  }
  return text;
}

void remember_output(const morvane_view_port& output, const record_name& name,
                     known_outputs& outputs) {
  outputs[str(output.port_name)] = {.name = name, .port = output};
}

const known_output* source_of(const morvane_view_port& input, const known_outputs& outputs) {
  const auto output = outputs.find(str(input.port_name));
  return input.port_name.length == 0 || output == outputs.end() ? nullptr : &output->second;
}

}  // namespace morvane::cli
