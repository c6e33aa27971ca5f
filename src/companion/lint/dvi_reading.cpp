#include "companion/lint/dvi_reading.h"

#include <cerrno>
#include <cstring>
#include <future>

#include "companion/lint/compare_header.h"
#include "companion/lint/macro_names.h"
#include "io/file.h"

namespace morvane::companion {

namespace {

/// What is read at the same time: enough to be worth a thread, and little memory.
constexpr std::size_t most_together = 64;
constexpr std::size_t least_shared = 8;
constexpr std::size_t most_text = std::size_t{256} << 10U;  // bytes; a longer header is the last

/// Loads the text of a header. Returns 0 or an errno.
int load_text(dvi_reading& reading) {
  const readable_file file = open_to_read(reading.header_path);
  if (!file.handle.is_open()) {
    return errno;
  }
  if (file.size < 0) {
    const auto status = status_of(file.handle);
    return status && S_ISDIR(status->st_mode) ? EISDIR : EINVAL;
  }
  reading.header_state = state_of(file.handle);
  reading.text = read_file(file);
  return 0;
}

void load_header(const lint_scope& scope, const folder_reading& files, std::uint32_t position,
                 dvi_reading& reading) {
  reading.position = position;
  reading.header_path = join_path(scope.folder, files.header(position));
  reading.image_path = join_path(scope.folder, files.dvis[position].name);
  reading.header_error = load_text(reading);
}

/// The flow of a port, whose record is one of a kind.
port_flow flow_of_record(std::span<const std::byte> bytes) {
  port_desc record{};
  std::memcpy(&record, bytes.data(), sizeof record);
  return flow_of(record);
}

/// Takes up a record of a block, in the order of the package.
void take_up(described_dvi& described, object_kind kind, std::span<const std::byte> record) {
  std::vector<std::byte>& records =
      family_of(kind) == macro_family::port ? described.ports : described.vproc_records;
  records.insert(records.end(), record.begin(), record.end());
}

/// Reads the loaded header as the pack run does.
void read_as_packed(const lint_scope& scope, const folder_reading& files, bool with_records,
                    dvi_reading& reading) {
  const auto take_record = [&](object_kind kind, std::string_view name,
                               std::span<const std::byte> record) {
    if (with_records) {
      take_up(reading.described, kind, record);
    }
    if (family_of(kind) == macro_family::port) {
      reading.ports.push_back({.kind = kind, .name = name, .flow = flow_of_record(record)});
    }
  };
  reading.header = read_header(reading.text, scope.vproc, files.dvis[reading.position].index,
                               reading.position, take_record);
}

void read_dvi(const lint_scope& scope, const folder_reading& files, bool with_records,
              dvi_reading& reading) {
  read_as_packed(scope, files, with_records, reading);
  reading.described.dvi = reading.header.dvi;
  reading.described.vproc = reading.header.vproc;
  reading.image = look_at_image(reading.image_path, reading.header.dvi.dvi_img_size);
  if (reading.header_error == 0) {
    reading.findings = compare_header(reading.header, scope.vproc, scope.notes);
  }
}

void read_all(const lint_scope& scope, const folder_reading& files, bool with_records,
              std::span<dvi_reading> readings) {
  for (dvi_reading& reading : readings) {
    read_dvi(scope, files, with_records, reading);
  }
}

}  // namespace

std::vector<dvi_reading> load_headers(const lint_scope& scope, const folder_reading& files,
                                      std::uint32_t first) {
  std::vector<dvi_reading> readings;
  readings.reserve(most_together);  // so that they stay where they are
  std::size_t text = 0;
  for (std::uint32_t i = first;
       i < files.dvis.size() && readings.size() < most_together && text < most_text; ++i) {
    if (!has_header(files.headers, i)) {
      continue;
    }
    dvi_reading& reading = readings.emplace_back();
    load_header(scope, files, i, reading);
    text += reading.text.size();
  }
  return readings;
}

void read_dvis(const lint_scope& scope, const folder_reading& files, bool with_records,
               std::span<dvi_reading> readings) {
  if (readings.size() < least_shared) {
    read_all(scope, files, with_records, readings);
    return;
  }
  const auto second = readings.subspan(readings.size() / 2);
  auto other = std::async([&] { read_all(scope, files, with_records, second); });
  read_all(scope, files, with_records, readings.first(readings.size() / 2));
  other.get();
}

void read_once_more(const lint_scope& scope, const folder_reading& files, std::uint32_t position,
                    dvi_reading& reading) {
  load_header(scope, files, position, reading);
  read_as_packed(scope, files, false, reading);
}

}  // namespace morvane::companion
