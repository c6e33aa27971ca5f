#include "companion/port_flow.h"

#include <array>
#include <string>
#include <utility>

#include "companion/printable_text.h"
#include "companion/record_rules.h"
#include "io/message.h"

namespace morvane::companion {

namespace {

/// A value that a port hands on unchanged.
struct flow_value {
  std::string_view field;
  std::int64_t value;
};

std::array<flow_value, 11> flow_values(const morvane_view_port& port) {
  return {{
      {"P", port.P},
      {"D", port.D},
      {"H", port.H},
      {"W", port.W},
      {"dram_format", port.dram_format},
      {"sign", port.sign},
      {"datasize", port.datasize},
      {"expoffset", port.expoffset},
      {"expbits", port.expbits},
      {"port_size", port.port_size},
      {"port_byte_offset", port.port_byte_offset},
  }};
}

}  // namespace

void remember_output(const morvane_view_port& output, const record_name& name,
                     known_outputs& outputs) {
  outputs[str(output.port_name)] = {.name = name, .port = output};
}

const known_output* source_of(const morvane_view_port& input, const known_outputs& outputs) {
  const auto output = outputs.find(str(input.port_name));
  return input.port_name.length == 0 || output == outputs.end() ? nullptr : &output->second;
}

std::string flow_differences(const morvane_view_port& input, const morvane_view_port& output) {
  const auto ours = flow_values(input);
  const auto theirs = flow_values(output);
  std::string text;
  for (std::size_t i = 0; i < ours.size(); ++i) {
    if (ours.at(i).value != theirs.at(i).value) {
      append_pieces(text, text.empty() ? "" : "; ", ours.at(i).field, " is ", ours.at(i).value,
                    ", not ", theirs.at(i).value);
    }
  }
  return text;
}

void check_input_flow(const morvane_view_port& input, const record_name& name,
                      const known_outputs& outputs, const finding_sink& sink) {
  const known_output* const output = source_of(input, outputs);
  if (output == nullptr) {
    return;
  }
  const std::string differing = flow_differences(input, output->port);
  if (!differing.empty()) {
    tell(sink, kind_of("port-mismatch"), input.offset,
         joined(str(name), " ", quoted(str(input.port_name)), " differs from ", str(output->name),
                ": ", differing));
  }
}

}  // namespace morvane::companion
