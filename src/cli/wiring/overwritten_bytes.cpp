#include "cli/wiring/overwritten_bytes.h"

#include <algorithm>
#include <map>
#include <utility>

#include "cli/output/printable_text.h"
#include "cli/wiring/misnamed_ports.h"

namespace morvane::cli {

namespace {

/// Data that stays in its bytes for some time. A DVI has three points of time: before it, data
/// comes from outside, then it reads, and then it writes.
struct kept_data {
  used_range bytes{};
  std::uint32_t port = 0;  // that wrote it, or first reads it from outside
  std::uint32_t reader = no_port;
  std::uint64_t begin = 0;
  std::uint64_t end = 0;  // when it is last read; its begin, if it is not
};

bool is_kept(const wiring_run& run, std::uint32_t at) {
  const wired_port& port = run.port(at);
  const used_range bytes = port_bytes(port.flow);
  const bool is_output = port.kind == object_kind::output;
  return bytes.begin < bytes.end && (is_output || run.link(at).outside == at) && !run.is_told[at] &&
         !run.is_repeated[at] && !run.is_displaced[port.dvi];
}

/// The data of a network, in the order of time.
std::vector<kept_data> find_data(const wiring_run& run) {
  std::vector<kept_data> all;
  for (std::uint32_t at = 0; at < run.network.ports.size(); ++at) {
    if (!is_kept(run, at)) {
      continue;
    }
    const wired_port& port = run.port(at);
    const std::uint32_t reader = run.link(at).last_reader;
    const std::uint64_t begin =
        std::uint64_t{3} * port.dvi + (port.kind == object_kind::output ? 2 : 0);
    const std::uint64_t end =
        reader == no_port ? begin : std::uint64_t{3} * run.port(reader).dvi + 1;
    if (reader == no_port || !run.is_displaced[run.port(reader).dvi]) {
      all.push_back({port_bytes(port.flow), at, reader, begin, end});
    }
  }
  return all;
}

/// Which data is in which bytes: ranges that do not overlap, by their begins.
struct memory_state {
  struct part {
    std::uint64_t end;
    std::uint32_t data;
  };
  std::map<std::uint64_t, part> parts{};
};

/// Takes bytes for data, and finds the data that was in them.
void put_data(memory_state& memory, const used_range& bytes, std::uint32_t data,
              std::vector<std::uint32_t>& replaced) {
  replaced.clear();
  auto part = memory.parts.upper_bound(bytes.begin);
  if (part != memory.parts.begin() && std::prev(part)->second.end > bytes.begin) {
    --part;
    const memory_state::part before = part->second;
    if (part->first < bytes.begin) {
      part->second.end = bytes.begin;
      part = memory.parts.emplace(bytes.begin, before).first;
    }
  }
  while (part != memory.parts.end() && part->first < bytes.end) {
    replaced.push_back(part->second.data);
    if (part->second.end > bytes.end) {
      memory.parts.emplace(bytes.end, part->second);
    }
    part = memory.parts.erase(part);
  }
  memory.parts.emplace(bytes.begin, memory_state::part{bytes.end, data});
}

/// Data that is lost, and what takes its bytes.
struct lost_data {
  std::uint32_t victim;
  std::uint32_t taker;
};

/// Walks through the time of a network.
struct memory_walk {
  wiring_run& run;
  std::vector<kept_data> data;
  std::vector<bool> has_fed_input{};  // DVIs with an input from an earlier one
  memory_state memory{};
  std::vector<lost_data> lost{};
};

bool is_from_outside(const memory_walk& walk, const kept_data& one) {
  return walk.run.port(one.port).kind == object_kind::input;
}

/// Two inputs may read the same bytes from outside under two names.
bool are_alike(const memory_walk& walk, const kept_data& one, const kept_data& other) {
  return is_from_outside(walk, one) && is_from_outside(walk, other) &&
         one.bytes.begin == other.bytes.begin && one.bytes.end == other.bytes.end;
}

/// What is lost when data takes bytes of earlier data, or of data of the same time.
void find_loss(memory_walk& walk, std::uint32_t earlier, std::uint32_t later) {
  const kept_data& one = walk.data[earlier];
  const kept_data& other = walk.data[later];
  if (are_alike(walk, one, other)) {
    return;
  }
  if (one.end > other.begin) {
    walk.lost.push_back({.victim = earlier, .taker = later});
  } else if (one.begin == other.begin && other.end > other.begin) {
    walk.lost.push_back({.victim = later, .taker = earlier});
  }
}

/// Whether an input brings its data to several DVIs in bytes that the network wrote before, after a
/// DVI that got data to write there: it is the DVI that writes it.
bool is_probably_written(const memory_walk& walk, const kept_data& taker,
                         const std::vector<std::uint32_t>& replaced) {
  return is_from_outside(walk, taker) && walk.has_fed_input[walk.run.port(taker.port).dvi] &&
         is_shared_input(walk.run, taker.port) &&
         std::ranges::any_of(
             replaced, [&](std::uint32_t data) { return !is_from_outside(walk, walk.data[data]); });
}

void add_loss(memory_walk& walk, const lost_data& loss, disjoint_sets& together) {
  const kept_data& victim = walk.data[loss.victim];
  const kept_data& taker = walk.data[loss.taker];
  wiring_run& run = walk.run;
  if (!run.is_doubted(victim.port) && !run.is_doubted(taker.port) &&
      !run.is_doubted(victim.reader)) {
    add_finding(run, kind_of("bytes-overwritten"), taker.port,
                joined(run.here(taker.port), ", ", range_text(taker.bytes),
                       is_from_outside(walk, taker) ? ", comes from outside into bytes of "
                                                    : ", overwrites bytes of ",
                       run.there(victim.port), ", ", range_text(victim.bytes), ", which ",
                       run.there(victim.reader), " still reads"),
                {cause_kind::bytes, together.find(loss.taker)});
  }
}

}  // namespace

void find_overwritten_bytes(wiring_run& run) {
  memory_walk walk{.run = run, .data = find_data(run)};
  walk.has_fed_input.resize(run.is_displaced.size());
  for (std::uint32_t at = 0; at < run.network.ports.size(); ++at) {
    if (run.port(at).kind == object_kind::input && run.link(at).source != no_port) {
      walk.has_fed_input[run.port(at).dvi] = true;
    }
  }
  std::vector<std::uint32_t> replaced;
  for (std::uint32_t taker = 0; taker < walk.data.size(); ++taker) {
    const kept_data& one = walk.data[taker];
    put_data(walk.memory, one.bytes, taker, replaced);
    if (is_probably_written(walk, one, replaced)) {
      tell_input_for_output(run, one.port, "the network writes its bytes before");
      continue;
    }
    for (const std::uint32_t earlier : replaced) {
      find_loss(walk, earlier, taker);
    }
  }
  disjoint_sets together(walk.data.size());
  for (const lost_data& loss : walk.lost) {
    together.join(loss.victim, loss.taker);
  }
  for (const lost_data& loss : walk.lost) {
    add_loss(walk, loss, together);
  }
}

}  // namespace morvane::cli
