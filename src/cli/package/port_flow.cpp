#include "cli/package/port_flow.h"

#include <array>
#include <string>
#include <tuple>

#include "io/message.h"

namespace morvane::cli {

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
