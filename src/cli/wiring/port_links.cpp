#include "cli/wiring/port_links.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace morvane::cli {

namespace {

/// The last ports of a name that were met.
struct last_ports {
  std::uint32_t name = 0;
  std::uint32_t output = no_port;
  std::uint32_t outside = no_port;
};

/// Whether an output is written in place of an input of its name, which is no second output.
bool is_update(const wired_network& network, const port_links& links, std::uint32_t output,
               std::uint32_t earlier) {
  const std::uint32_t input = links.ports[earlier].last_reader;
  const wired_port& port = network.ports[output];
  return input != no_port && network.ports[input].dvi == port.dvi &&
         network.ports[input].flow == port.flow;
}

void link_output(const wired_network& network, port_links& links, std::uint32_t port,
                 last_ports& last) {
  if (last.output != no_port && !is_update(network, links, port, last.output)) {
    links.ports[port].source = last.output;
  }
  last.output = port;
  if (links.first_outputs[last.name] == no_port) {
    links.first_outputs[last.name] = port;
  }
}

void link_input(const wired_network& network, port_links& links, std::uint32_t port,
                last_ports& last) {
  if (last.output != no_port) {
    links.ports[port].source = last.output;
    return add_reader(links, last.output, port);
  }
  const auto begin_of = [&](std::uint32_t at) { return port_bytes(network.ports[at].flow).begin; };
  if (last.outside == no_port || begin_of(last.outside) != begin_of(port)) {
    last.outside = port;
  }
  links.ports[port].outside = last.outside;
  add_reader(links, last.outside, port);
}

}  // namespace

void add_reader(port_links& links, std::uint32_t source, std::uint32_t reader) {
  port_link& link = links.ports[source];
  link.first_reader = std::min(link.first_reader, reader);
  link.last_reader = link.last_reader == no_port ? reader : std::max(link.last_reader, reader);
}

port_links find_links(const wired_network& network) {
  const std::vector<wired_port>& ports = network.ports;
  port_links links{.ports = std::vector<port_link>(ports.size())};
  std::unordered_map<std::string_view, last_ports> names;
  names.reserve(ports.size() / 2 + 1);
  for (std::uint32_t port = 0; port < ports.size(); ++port) {
    const auto number = static_cast<std::uint32_t>(links.first_outputs.size());
    const auto [known, is_new] = names.try_emplace(ports[port].name, last_ports{.name = number});
    if (is_new) {
      links.first_outputs.push_back(no_port);
    }
    last_ports nameless{.name = known->second.name};
    last_ports& last = ports[port].name.empty() ? nameless : known->second;
    links.ports[port].name = last.name;
    if (ports[port].kind == object_kind::output) {
      link_output(network, links, port, last);
    } else {
      link_input(network, links, port, last);
    }
  }
  return links;
}

std::uint32_t late_producer(const wired_network& network, const port_links& links,
                            std::uint32_t input) {
  const wired_port& port = network.ports[input];
  const port_link& link = links.ports[input];
  if (link.source != no_port || port.name.empty()) {
    return no_port;
  }
  const std::uint32_t output = links.first_outputs[link.name];
  return output != no_port && network.ports[output].dvi > port.dvi ? output : no_port;
}

}  // namespace morvane::cli
