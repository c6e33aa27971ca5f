#include "cli/lint/dvi_reading.h"

#include <cstring>
#include <utility>

#include "cli/lint/header/macro_names.h"
#include "cli/lint/rules/compare_header.h"
#include "io/file.h"

namespace morvane::cli {

namespace {

/// A port, from its record.
read_port port_of_record(object_kind kind, std::string_view name,
                         std::span<const std::byte> bytes) {
  port_desc record{};
  std::memcpy(&record, bytes.data(), sizeof record);
  return {.kind = kind,
          .name = name,
          .is_bitvector = (record.flags & MORVANE_PORT_BITVECTOR) != 0,
          .flow = flow_of(record)};
}

/// Takes up a record of a block, in the order of the package.
void take_up(parsed_dvi& parsed, object_kind kind, std::span<const std::byte> record) {
  std::vector<std::byte>& records =
      family_of(kind) == macro_family::port ? parsed.ports : parsed.vproc_records;
  records.insert(records.end(), record.begin(), record.end());
}

}  // namespace

header_file load_header(const std::string& path) {
  header_file header{.path = path};
  const readable_file file = open_input(path, header.state);
  if (header.state.error == 0) {
    file_content content = read_file(file);
    header.text = std::move(content.text);
    header.state.error = content.error;
  }
  return header;
}

dvi_reading read_dvi(const lint_scope& scope, const header_file& file, std::int32_t index,
                     std::uint32_t position, bool with_records) {
  dvi_reading reading{.position = position};
  const auto take_record = [&](object_kind kind, std::string_view name,
                               std::span<const std::byte> record) {
    if (with_records) {
      take_up(reading.parsed, kind, record);
    }
    if (family_of(kind) == macro_family::port) {
      reading.ports.push_back(port_of_record(kind, name, record));
    }
  };
  reading.header = read_header(file.text, scope.vproc, index, position, take_record);
  reading.parsed.dvi = reading.header.dvi;
  reading.parsed.vproc = reading.header.vproc;
  if (file.state.error == 0) {
    reading.findings = compare_header(reading.header, scope.vproc, scope.notes);
  }
  return reading;
}

}  // namespace morvane::cli
