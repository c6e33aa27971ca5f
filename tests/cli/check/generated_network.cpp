#include "cli/check/generated_network.h"

#include <algorithm>

#include "harness/packages.h"

namespace morvane::test {
namespace {

constexpr std::uint32_t unit = 64;

std::size_t below(std::mt19937_64& random, std::size_t limit) {
  return random() % limit;
}

/// Data of a network: the DVI that writes it and the last one that reads it.
struct generated_data {
  generated_port port;
  std::size_t writer;
  std::size_t last_reader;
};

/// A network that is being made.
struct network_plan {
  generated_network network{};
  std::vector<generated_data> data{};
  std::uint32_t outside = 0;  // bytes for what comes from outside, which lie in front
};

void read_data(network_plan& plan, std::size_t dvi, generated_data& data) {
  std::vector<generated_port>& inputs = plan.network[dvi].inputs;
  if (std::ranges::find(inputs, data.port.name, &generated_port::name) == inputs.end()) {
    inputs.push_back(data.port);
    data.last_reader = dvi;
  }
}

generated_port port_from_outside(network_plan& plan, const std::string& name) {
  const generated_port port{.name = name, .offset = plan.outside, .size = unit, .width = unit};
  plan.outside += unit;
  return port;
}

/// Adds the inputs of a DVI: most from a DVI just before, some from one far before.
void add_inputs(network_plan& plan, std::mt19937_64& random, std::size_t dvi) {
  for (std::size_t i = below(random, 3); i < 3 && !plan.data.empty(); ++i) {
    const std::size_t back = below(random, below(random, 2) == 0 ? 3 : plan.data.size());
    read_data(plan, dvi, plan.data[plan.data.size() - 1 - std::min(back, plan.data.size() - 1)]);
  }
}

void add_outputs(network_plan& plan, std::mt19937_64& random, std::size_t dvi) {
  for (std::size_t i = below(random, 3); i < 3; ++i) {
    const auto size = static_cast<std::uint32_t>(unit * (1 + below(random, 4)));
    const std::string name = "s" + std::to_string(plan.data.size());
    plan.data.push_back({{.name = name, .size = size, .width = size}, dvi, dvi});
  }
}

/// Whether two data may have the same bytes: one is read for the last time before, or by the DVI
/// that writes the other. What nobody reads is a result, and stays.
bool can_share(const generated_data& one, const generated_data& other) {
  const bool are_read = one.last_reader != one.writer && other.last_reader != other.writer;
  return are_read && (one.last_reader <= other.writer || other.last_reader <= one.writer) &&
         one.writer != other.writer;
}

/// Gives each data the first bytes that are free.
void place_data(network_plan& plan) {
  for (std::size_t i = 0; i < plan.data.size(); ++i) {
    generated_port& port = plan.data[i].port;
    port.offset = plan.outside;
    for (std::size_t other = 0; other < i; ++other) {
      const generated_port& taken = plan.data[other].port;
      if (!can_share(plan.data[i], plan.data[other]) && port.offset < taken.offset + taken.size &&
          taken.offset < port.offset + port.size) {
        port.offset = taken.offset + taken.size;
        other = SIZE_MAX;  // from the first on again
      }
    }
  }
}

void finish_ports(network_plan& plan) {
  for (generated_data& data : plan.data) {
    plan.network[data.writer].outputs.push_back(data.port);
    for (generated_dvi& dvi : plan.network) {
      const auto input = std::ranges::find(dvi.inputs, data.port.name, &generated_port::name);
      if (input != dvi.inputs.end()) {
        *input = data.port;
      }
    }
  }
}

std::string port_record(const generated_port& made) {
  port_desc record = port(made.name, "layer");
  record.P = 1;
  record.D = 1;
  record.H = 1;
  record.W = made.width;
  record.datasize = 8;
  record.port_size = made.size;
  record.port_byte_offset = made.offset;
  return bytes(record);
}

}  // namespace

generated_network make_network(std::mt19937_64& random, std::size_t dvis) {
  network_plan plan;
  const generated_port camera = port_from_outside(plan, "camera");
  for (std::size_t i = 0; i < dvis; ++i) {
    const std::string number = std::to_string(i);
    plan.network.push_back(
        {.name = "dag" + number, .image = static_cast<std::uint32_t>(0x1000 * (i + 1))});
    add_inputs(plan, random, i);
    if (i == 0 || below(random, 4) == 0) {
      plan.network[i].inputs.push_back(camera);
    }
    if (below(random, 5) == 0) {  // written where it is read
      const generated_port state = port_from_outside(plan, "state_in" + number);
      plan.network[i].inputs.push_back(state);
      plan.network[i].outputs.push_back(state);
      plan.network[i].outputs.back().name = "state_out" + number;
    }
    add_outputs(plan, random, i);
  }
  place_data(plan);
  finish_ports(plan);
  return plan.network;
}

std::string package_of(const generated_network& network) {
  constexpr std::uint32_t image_size = 64;
  std::string package = header(static_cast<std::uint32_t>(network.size()));
  std::string blocks;
  for (std::size_t i = 0; i < network.size(); ++i) {
    const generated_dvi& made = network[i];
    dvi_desc record = dvi(made.name, image_size, static_cast<std::uint32_t>(made.inputs.size()),
                          static_cast<std::uint32_t>(made.outputs.size()));
    record.vproc_id = static_cast<std::uint8_t>(i);
    record.dvi_img_vaddr = record.dvi_dag_vaddr = made.image;
    package += bytes(record);
    for (const std::vector<generated_port>& ports : {made.inputs, made.outputs}) {
      for (const generated_port& one : ports) {
        blocks += port_record(one);
      }
    }
    blocks += std::string(image_size, 'i');
  }
  return package + blocks;
}

}  // namespace morvane::test
