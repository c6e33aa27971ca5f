// The input is the text of a header. Every parser reads it.

#include <algorithm>
#include <optional>
#include <vector>

#include "discovery/input_files.h"
#include "fuzz/fuzz_target.h"
#include "harness/scratch_folder.h"
#include "harness/silence.h"
#include "headers/dag_descriptions.h"
#include "headers/port_descriptions.h"
#include "headers/vproc_descriptions.h"
#include "headers/vproc_variables.h"

namespace morvane::test {
namespace {

/// Checks a text field: the text ends inside it, and only NULs follow.
void require_text(std::span<const char> field) {
  const std::size_t length = text_of(field).size();
  require(length < field.size(), "a text ends with a NUL");
  require(std::ranges::all_of(field.subspan(length), [](char c) { return c == '\0'; }),
          "a field is NULs after its text");
}

void check_dvis(const std::vector<dvi_desc>& dvis) {
  for (const dvi_desc& dvi : dvis) {
    require_text(dvi.dag_name);
    require(dvi.reserved == 0, "reserved bytes are 0");
    require(dvi.dvi_pkg_size == dvi.dvi_img_size + 1080U * (dvi.input_num + dvi.output_num),
            "a block's size is that of its ports and its image");
  }
}

// The three functions below return the number of records in the header, or nothing if a name is too
// long.

std::optional<std::size_t> count_ports(std::string_view header, const port_class& ports_class) {
  std::vector<port_desc> ports;
  const int status = parse_port_descriptions(ports, header, ports_class);
  for (const port_desc& port : ports) {
    require_text(port.port_name);
    require_text(port.layer_name);
    require(port.port_name[0] != '\0', "a port has a name");
    require(port.reserved[0] == 0 && port.reserved[1] == 0, "reserved bytes are 0");
    require((port.flags & 0xC0) == 0, "unused flags are 0");
  }
  return status == 0 ? std::optional(ports.size()) : std::nullopt;
}

std::optional<std::size_t> count_variables(std::string_view header) {
  std::vector<var_desc> variables;
  const int status = parse_vproc_variables(variables, header);
  for (const var_desc& variable : variables) {
    require_text(variable.var);
    require(variable.var[0] != '\0', "a variable has a name");
  }
  return status == 0 ? std::optional(variables.size()) : std::nullopt;
}

std::optional<std::size_t> count_smbs(std::string_view header) {
  std::vector<smb_desc> smbs;
  const int status = parse_smb_descriptions(smbs, header);
  for (const smb_desc& smb : smbs) {
    require_text(smb.smb_name);
    require(smb.smb_name[0] != '\0', "an SMB has a name");
  }
  return status == 0 ? std::optional(smbs.size()) : std::nullopt;
}

/// Checks that the counts of independent parsers agree. Ports before the DAG's name are not
/// counted, and neither are SMBs on a line that introduces a variable.
void check_counts(std::string_view header, const dvi_desc& dvi, const vproc_desc& vproc) {
  const auto inputs = count_ports(header, input_ports);
  const auto outputs = count_ports(header, output_ports);
  const auto variables = count_variables(header);
  const auto smbs = count_smbs(header);
  require(!inputs || *inputs >= dvi.input_num, "every counted input port is read");
  require(!outputs || *outputs >= dvi.output_num, "every counted output port is read");
  require(!variables || *variables == vproc.variable_num, "every variable is counted and read");
  require(!smbs || *smbs >= vproc.smb_num, "every counted SMB is read");
  require(!smbs || *smbs <= vproc.smb_num + vproc.variable_num,
          "every SMB that is read has a line");
}

}  // namespace
}  // namespace morvane::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane;
  static const test::silence silent;
  static const test::scratch_folder scratch;
  const std::string_view header = test::text_of_input(data, size);
  scratch.write("a.h", header);
  const input_list headers{{.name = "a.h", .index = 0},
                           {.name = "missing.h", .index = 300},
                           {.name = "a.h", .index = -1}};

  std::vector<dvi_desc> dvis;
  const int dag_status = parse_dag_descriptions(dvis, scratch.path(), headers);
  test::require(dvis.size() == (dag_status == 0 ? headers.size() : 0),
                "every header gives a record, or the first stops");
  test::check_dvis(dvis);
  const bool named = dag_status == 0 && dvis[0].dag_name[0] != '\0';
  if (dag_status == 0) {
    test::require((check_duplicate_dag_names(scratch.path(), headers) == 1) == named,
                  "a header that is read twice repeats its DAG's name");
  }

  std::vector<vproc_desc> vprocs;
  test::require(parse_vproc_description(vprocs, scratch.path(), headers) == 0 &&
                    vprocs.size() == headers.size(),
                "every header has its vproc description");
  test::check_counts(header, dag_status == 0 ? dvis[0] : dvi_desc{}, vprocs[0]);
  return 0;
}
