#include "companion/lint/dvi_reading.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <future>

#include "companion/lint/compare_header.h"
#include "companion/lint/macro_names.h"
#include "io/file.h"

namespace morvane::companion {

namespace {

/// What is read at the same time: enough to be worth a thread, and little memory.
constexpr std::size_t most_together = 32;
constexpr std::size_t least_shared = 8;
constexpr std::size_t most_text = std::size_t{128} << 10U;  // bytes; no header is begun after them

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

/// DVIs that are read at the same time, from a position on.
struct shared_reading {
  const lint_scope& scope;
  const folder_reading& files;
  bool with_records;
  std::uint32_t first;
  std::span<dvi_reading> readings;
  std::atomic<std::size_t> next{0};
  std::atomic<std::size_t> text{0};  // bytes of the headers that were read
};

/// Reads one DVI after the other until all are read, or many bytes.
void read_share(shared_reading& run) {
  while (run.text < most_text) {
    const std::size_t taken = run.next++;
    if (taken >= run.readings.size()) {
      return;
    }
    const auto position = run.first + static_cast<std::uint32_t>(taken);
    dvi_reading& reading = run.readings[taken];
    reading.position = position;
    if (has_header(run.files.headers, position)) {
      load_header(run.scope, run.files, position, reading);
      run.text += reading.text.size();
      read_dvi(run.scope, run.files, run.with_records, reading);
    }
  }
}

}  // namespace

std::vector<dvi_reading> read_dvis(const lint_scope& scope, const folder_reading& files,
                                   std::uint32_t first, bool with_records) {
  std::vector<dvi_reading> readings(std::min(files.dvis.size() - first, most_together));
  shared_reading run{.scope = scope,
                     .files = files,
                     .with_records = with_records,
                     .first = first,
                     .readings = readings};
  if (readings.size() < least_shared) {
    read_share(run);
  } else {
    auto other = std::async([&] { read_share(run); });
    read_share(run);
    other.get();
  }
  readings.resize(std::min(run.next.load(), readings.size()));
  return readings;
}

void read_once_more(const lint_scope& scope, const folder_reading& files, std::uint32_t position,
                    dvi_reading& reading) {
  load_header(scope, files, position, reading);
  read_as_packed(scope, files, false, reading);
}

}  // namespace morvane::companion
