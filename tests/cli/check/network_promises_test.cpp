// What morvane check says about networks: nothing about right ones, and little about one mistake.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <span>

#include "cli/check/check_package.h"
#include "cli/check/generated_network.h"
#include "cli/findings/finding_output.h"
#include "harness/test_size.h"

namespace morvane::test {
namespace {

using random_source = std::mt19937_64;
using finding_lines = std::vector<std::string>;

finding_lines findings_about(const generated_network& network) {
  const std::string package = package_of(network);
  morvane_view view{};
  morvane_view_damage damage{};
  morvane_view_open(&view, reinterpret_cast<const std::uint8_t*>(package.data()), package.size(),
                    &damage);
  finding_lines found;
  cli::check_package(
      view, damage, {}, [&](const cli::finding& one) { found.push_back(finding_line(one, false)); },
      [](std::uint64_t) {});
  return found;
}

/// An output, and who reads it.
struct found_output {
  std::size_t dvi;
  std::size_t index;
  std::vector<std::size_t> readers;
};

std::vector<found_output> outputs_of(const generated_network& network) {
  std::vector<found_output> outputs;
  for (std::size_t dvi = 0; dvi < network.size(); ++dvi) {
    for (std::size_t index = 0; index < network[dvi].outputs.size(); ++index) {
      outputs.push_back({dvi, index, {}});
      for (std::size_t reader = dvi + 1; reader < network.size(); ++reader) {
        if (std::ranges::find(network[reader].inputs, network[dvi].outputs[index].name,
                              &generated_port::name) != network[reader].inputs.end()) {
          outputs.back().readers.push_back(reader);
        }
      }
    }
  }
  return outputs;
}

using output_filter = std::function<bool(const found_output&)>;

/// An output that a function wants, if there is one.
std::optional<found_output> pick_output(const generated_network& network, random_source& random,
                                        const output_filter& is_wanted) {
  std::vector<found_output> outputs = outputs_of(network);
  std::erase_if(outputs, [&](const found_output& output) { return !is_wanted(output); });
  return outputs.empty() ? std::nullopt : std::optional(outputs[random() % outputs.size()]);
}

bool is_read(const found_output& output) {
  return !output.readers.empty();
}

generated_port& port_of(generated_network& network, const found_output& output) {
  return network[output.dvi].outputs[output.index];
}

generated_port& input_named(generated_dvi& dvi, const std::string& name) {
  return *std::ranges::find(dvi.inputs, name, &generated_port::name);
}

/// "output s1 of DVI 3 (dag3)"
std::string label_of(std::string_view kind, const std::string& name,
                     const generated_network& network, std::size_t dvi) {
  return std::string(kind) + " " + name + " of DVI " + std::to_string(dvi) + " (" +
         network[dvi].name + ")";
}

/// Makes a mistake. Returns what a finding must name, or nothing if the network has no place for
/// it.
using mistake_maker = std::string (*)(generated_network& network, random_source& random);

std::string rename_an_output(generated_network& network, random_source& random) {
  const auto output = pick_output(network, random, is_read);
  if (!output) {
    return "";
  }
  port_of(network, *output).name += "x";
  return label_of("output", port_of(network, *output).name, network, output->dvi);
}

std::string make_an_output_an_input(generated_network& network, random_source& random) {
  const auto output = pick_output(network, random, [&](const found_output& one) {
    return is_read(one) && network[one.dvi].outputs.size() == 1;
  });
  if (!output) {
    return "";
  }
  generated_dvi& dvi = network[output->dvi];
  dvi.inputs.push_back(dvi.outputs.front());
  dvi.outputs.clear();
  return label_of("input", dvi.inputs.back().name, network, output->dvi);
}

std::string exchange_two_dvis(generated_network& network, random_source& random) {
  const auto output = pick_output(network, random, is_read);
  if (!output) {
    return "";
  }
  const std::size_t reader = output->readers[random() % output->readers.size()];
  std::swap(network[output->dvi], network[reader]);
  return "DVI " + std::to_string(output->dvi) + " (" + network[output->dvi].name + ")";
}

std::string repeat_an_output(generated_network& network, random_source& random) {
  const auto first = pick_output(network, random, is_read);
  if (!first) {
    return "";
  }
  const auto second = pick_output(network, random, [&](const found_output& one) {
    return one.dvi > first->dvi && network[one.dvi].outputs.size() > 1 && one.readers.empty();
  });
  if (!second) {
    return "";
  }
  port_of(network, *second).name = port_of(network, *first).name;
  return label_of("output", port_of(network, *second).name, network, second->dvi);
}

/// Moves an output and its inputs into bytes that somebody reads later.
std::string overwrite_bytes(generated_network& network, random_source& random) {
  const auto victim = pick_output(network, random, [&](const found_output& one) {
    return is_read(one) && one.readers.back() > one.dvi + 1;
  });
  if (!victim) {
    return "";
  }
  const auto taker = pick_output(network, random, [&](const found_output& one) {
    return one.dvi > victim->dvi && one.dvi < victim->readers.back();
  });
  if (!taker) {
    return "";
  }
  const std::string name = port_of(network, *taker).name;
  port_of(network, *taker).offset = port_of(network, *victim).offset + 16;
  for (const std::size_t reader : taker->readers) {
    input_named(network[reader], name).offset = port_of(network, *taker).offset;
  }
  return label_of("output", name, network, taker->dvi);
}

std::string shorten_a_port(generated_network& network, random_source& random) {
  const auto output = pick_output(network, random, [](const found_output&) { return true; });
  const std::string name = port_of(network, *output).name;
  port_of(network, *output).size /= 2;
  for (const std::size_t reader : output->readers) {
    input_named(network[reader], name).size /= 2;
  }
  return label_of("output", name, network, output->dvi);
}

std::string change_the_dims_of_an_input(generated_network& network, random_source& random) {
  const auto output = pick_output(network, random, is_read);
  if (!output) {
    return "";
  }
  const std::string name = port_of(network, *output).name;
  const std::size_t reader = output->readers[random() % output->readers.size()];
  input_named(network[reader], name).width /= 2;
  return label_of("input", name, network, reader);
}

std::string move_an_image(generated_network& network, random_source& random) {
  if (network.size() < 2) {
    return "";
  }
  const std::size_t moved = 1 + random() % (network.size() - 1);
  network[moved].image = network[moved - 1].image + 16;
  return "the image of DVI " + std::to_string(moved) + " (";
}

constexpr std::array<std::pair<const char*, mistake_maker>, 8> mistakes{
    {{"rename_an_output", rename_an_output},
     {"make_an_output_an_input", make_an_output_an_input},
     {"exchange_two_dvis", exchange_two_dvis},
     {"repeat_an_output", repeat_an_output},
     {"overwrite_bytes", overwrite_bytes},
     {"shorten_a_port", shorten_a_port},
     {"change_the_dims_of_an_input", change_the_dims_of_an_input},
     {"move_an_image", move_an_image}}};

std::string text_of(const finding_lines& found) {
  std::string text;
  for (const std::string& line : found) {
    text += line;
  }
  return text;
}

TEST(NetworkPromises, RightNetworksHaveNoFindingAndMistakesFewLines) {
  random_source random(test_seed());
  const unsigned cases = cases_to_run(400, 40);
  std::array<unsigned, mistakes.size()> made{};
  for (unsigned i = 0; i < cases && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE("case " + std::to_string(i) + " with the seed above");
    const std::size_t dvis = i % 40 == 39 ? 200 : 1 + random() % 12;
    const generated_network network = make_network(random, dvis);
    EXPECT_EQ(text_of(findings_about(network)), "");
    for (std::size_t m = 0; m < mistakes.size(); ++m) {
      SCOPED_TRACE(mistakes.at(m).first);
      generated_network mistaken = network;
      const std::string named = mistakes.at(m).second(mistaken, random);
      if (named.empty()) {
        continue;
      }
      ++made.at(m);
      const finding_lines found = findings_about(mistaken);
      EXPECT_LE(found.size(), 3U) << text_of(found);
      EXPECT_NE(text_of(found).find(named), std::string::npos)
          << "no finding names " << named << " in\n"
          << text_of(found);
    }
  }
  for (std::size_t m = 0; m < mistakes.size(); ++m) {
    EXPECT_GE(made.at(m), cases / 10) << mistakes.at(m).first;
  }
}

}  // namespace
}  // namespace morvane::test
