#include "cli/lint/folder_network.h"

#include <algorithm>
#include <map>
#include <utility>

#include "cli/lint/header/line_index.h"
#include "cli/output/printable_text.h"
#include "cli/package/overlaps.h"
#include "cli/wiring/wiring_rules.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

/// Whether the ports of a header are not those that are meant.
bool is_doubtful(const header_findings& findings) {
  return std::ranges::any_of(findings, [](const header_finding& found) {
    return level_of(found) == severity::error || found.kind == kind_of("repeated-block");
  });
}

void add_ports(folder_network& network, const dvi_reading& reading, line_index& lines) {
  std::uint32_t inputs = 0;
  std::uint32_t outputs = 0;
  for (const read_port& port : reading.ports) {
    const auto place = static_cast<std::size_t>(port.name.data() - reading.header.header.data());
    network.wired.ports.push_back({.name = *network.names.emplace(port.name).first,
                                   .dvi = reading.position,
                                   .index = port.kind == object_kind::input ? inputs++ : outputs++,
                                   .kind = port.kind,
                                   .is_bitvector = port.is_bitvector,
                                   .place = lines.position(place),
                                   .flow = port.flow});
  }
}

/// The paths of the headers that a finding and its rest are about.
using header_paths = std::map<std::uint32_t, std::string>;

/// A finding without its rest.
finding located(wired_finding& found, const lint_scope& scope, const folder_reading& files,
                header_paths& paths) {
  std::string& path = paths[found.dvi];
  if (path.empty()) {
    path = join_path(scope.folder, files.header(found.dvi));
  }
  return {.kind = found.kind, .file = path, .place = found.place, .text = std::move(found.text)};
}

wiring_labels labels_of(const folder_reading& files) {
  const auto header = [&files](std::uint32_t dvi) { return printable(files.header(dvi)); };
  const auto port_here = [](const wired_port& port) {
    return joined(name_of(port.kind), " ", printable(port.name));
  };
  return {.port_here = port_here,
          .port_there =
              [header, port_here](const wired_port& port) {
                return joined(port_here(port), " on line ", port.place.line, " of ",
                              header(port.dvi));
              },
          .image_here = [](std::uint32_t /*dvi*/) { return std::string("the image"); },
          .image_there = [header](std::uint32_t dvi) { return "that of " + header(dvi); }};
}

}  // namespace

void add_doubted_dvi(folder_network& network, std::uint32_t position) {
  network.wired.doubted.resize(position + std::size_t{1});
  network.wired.doubted.back() = true;
  network.wired.is_whole = false;
}

void add_dvi(folder_network& network, const dvi_reading& reading) {
  const header_reading& header = reading.header;
  line_index lines(header.header);
  if (is_doubtful(reading.findings)) {
    add_doubted_dvi(network, reading.position);
  }
  network.wired.doubted.resize(reading.position + std::size_t{1});
  add_ports(network, reading, lines);
  if (!header.dag_name.empty()) {
    const auto place = static_cast<std::size_t>(header.dag_name.data() - header.header.data());
    network.wired.images.push_back(
        {.range = image_range(reading.position, header.dvi.dvi_img_vaddr, header.dvi.dvi_img_size),
         .place = lines.position(place)});
  }
}

void check_network(const folder_network& network, const lint_scope& scope,
                   const folder_reading& files, const finding_sink& sink) {
  for (wired_finding& found : find_wiring(network.wired, labels_of(files), scope.notes)) {
    header_paths paths;
    finding made = located(found, scope, files, paths);
    for (wired_finding& effect : found.rest) {
      made.rest.push_back(located(effect, scope, files, paths));
    }
    sink(made);
  }
}

}  // namespace morvane::cli
