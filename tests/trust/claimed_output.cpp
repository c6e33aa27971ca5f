#include "trust/claimed_output.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "format/records.h"

namespace morvane::test {

namespace {

constexpr std::uint64_t greatest_claim = std::uint64_t{4} << 30;

// The output for a record without names, in bytes: its line in the report, its lines in the header.
constexpr std::uint64_t dvi_bytes = 420;
constexpr std::uint64_t dvi_block_bytes = 60;
constexpr std::uint64_t port_bytes = 1050;
constexpr std::uint64_t vproc_bytes = 60;
constexpr std::uint64_t variable_bytes = 90;
constexpr std::uint64_t smb_bytes = 100;

// How often the lines of a port contain the name of its DAG.
constexpr std::uint64_t port_lines = 25;

struct walk {
  std::string_view rest;
  std::uint64_t size;  // of the whole package
  claim found;
};

/// Takes the present records of a list off the package. The last one may be cut. Empty after a
/// refused count.
template <class Record>
std::vector<Record> take(walk& package, std::uint32_t count) {
  package.found.refused =
      package.found.refused || count > 0x7FFFFFFFU ||
      std::uint64_t{count} * sizeof(Record) > std::max(package.size, greatest_claim);
  if (package.found.refused) {
    return {};
  }
  const std::size_t bytes =
      std::min<std::uint64_t>(std::uint64_t{count} * sizeof(Record), package.rest.size());
  std::vector<Record> records((bytes + sizeof(Record) - 1) / sizeof(Record));
  if (bytes > 0) {
    std::memcpy(records.data(), package.rest.data(), bytes);
  }
  package.rest.remove_prefix(bytes);
  return records;
}

void walk_ports(walk& package, std::uint32_t count, std::uint64_t dag_name) {
  const auto ports = take<port_desc>(package, count);
  if (package.found.refused) {
    return;
  }
  package.found.bytes += count * (port_bytes + port_lines * dag_name);
  for (const port_desc& port : ports) {
    package.found.bytes +=
        (port_lines + 1) * text_of(port.port_name).size() + 2 * text_of(port.layer_name).size();
  }
}

void walk_dvi(walk& package, const dvi_desc& dvi) {
  const std::uint64_t dag_name = text_of(dvi.dag_name).size();
  walk_ports(package, dvi.input_num, dag_name);
  walk_ports(package, dvi.output_num, dag_name);
  package.found.bytes += dvi_block_bytes + dag_name;
  package.found.refused = package.found.refused || dvi.dvi_img_size > 0x7FFFFFFFU;
  if (!package.found.refused) {
    const auto image = std::min<std::size_t>(dvi.dvi_img_size, package.rest.size());
    package.rest.remove_prefix(image);
    package.found.bytes += image;
  }
}

void walk_vprocs(walk& package, std::uint32_t dvi_num, const std::vector<dvi_desc>& dvis) {
  const auto vprocs = take<vproc_desc>(package, dvi_num);
  package.found.bytes += dvi_num * vproc_bytes;
  for (std::size_t i = 0; i < vprocs.size() && !package.found.refused; ++i) {
    const std::uint64_t dag_name = i < dvis.size() ? text_of(dvis[i].dag_name).size() : 0;
    const auto variables = take<var_desc>(package, vprocs[i].variable_num);
    const auto smbs = take<smb_desc>(package, vprocs[i].smb_num);
    if (package.found.refused) {
      return;
    }
    package.found.bytes += vprocs[i].variable_num * variable_bytes +
                           vprocs[i].smb_num * (smb_bytes + 2 * dag_name) + dag_name;
    for (const var_desc& variable : variables) {
      package.found.bytes += 4 * text_of(variable.var).size();
    }
    for (const smb_desc& smb : smbs) {
      package.found.bytes += 3 * text_of(smb.smb_name).size();
    }
  }
}

}  // namespace

claim claimed_output(std::string_view bytes, bool vproc) {
  walk package{.rest = bytes, .size = bytes.size(), .found = {}};
  pkg_header header{};
  if (bytes.size() >= sizeof header) {
    std::memcpy(&header, bytes.data(), sizeof header);
  }
  package.rest.remove_prefix(std::min(bytes.size(), sizeof header));
  const auto dvis = take<dvi_desc>(package, header.dvi_num);
  if (package.found.refused) {
    return package.found;
  }
  package.found.bytes += header.dvi_num * dvi_bytes;
  for (std::size_t i = 0; i < dvis.size() && !package.found.refused; ++i) {
    package.found.bytes += 8 * text_of(dvis[i].dag_name).size();
    walk_dvi(package, dvis[i]);
  }
  package.found.bytes += (header.dvi_num - dvis.size()) * dvi_block_bytes;
  if (vproc && !package.found.refused && package.rest.size() >= sizeof(std::uint32_t)) {
    walk_vprocs(package, header.dvi_num, dvis);
  }
  return package.found;
}

}  // namespace morvane::test
