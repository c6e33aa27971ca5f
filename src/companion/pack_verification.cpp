#include "companion/pack_verification.h"

#include <morvane/package_view.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <future>
#include <vector>

#include "companion/finding_output.h"
#include "companion/header_records.h"
#include "companion/opened_package.h"
#include "format/build_constants.h"

namespace morvane::companion {

namespace {

/// What two threads read images into.
using image_buffers = std::array<std::vector<std::byte>, 2>;

/// A comparison on its way over the DVIs. The memory is used for one input after the other.
struct comparing {
  const package_bytes& package;
  morvane_view view{};
  std::string header{};
  image_buffers buffers{};
};

/// Reads an input, a regular file, as it is now. Returns 0 or an errno.
int read_text(const std::string& path, std::string& text) {
  const readable_file file = open_to_read(path);
  if (!file.handle.is_open()) {
    return errno;
  }
  text.resize(static_cast<std::size_t>(std::max<std::int64_t>(file.size, 0)));
  text.resize(read_bytes(file.handle, std::as_writable_bytes(std::span(text))));
  return 0;
}

input_comparison compare_header(comparing& run, const morvane_view_dvi& dvi,
                                const std::string& path, std::int32_t index) {
  if (const int error = read_text(path, run.header); error != 0) {
    return {.path = path, .error = error};
  }
  return {.are_same = holds_records_of(run.view, dvi, run.header, index)};
}

/// Compares a part of an image with the same part of its file. The file is read, not mapped: it may
/// be cut meanwhile.
bool holds_part(const package_bytes& package, std::span<const std::uint8_t> part,
                const file_handle& file, off_t offset, std::vector<std::byte>& buffer) {
  buffer.resize(std::min(part.size(), chunk_size));
  while (!part.empty()) {
    const auto written = part.first(std::min(part.size(), buffer.size()));
    const auto read = std::span(buffer).first(written.size());
    package.fetch(written);
    if (read_bytes_at(file, offset, read) < read.size() ||
        std::memcmp(read.data(), written.data(), read.size()) != 0) {
      return false;
    }
    package.release(written);
    part = part.subspan(written.size());
    offset += static_cast<off_t>(written.size());
  }
  return true;
}

/// Compares an image with its file: a large one in two halves at the same time.
bool holds_image(comparing& run, std::span<const std::uint8_t> image, const file_handle& file) {
  constexpr std::size_t least_to_share = 16 * system_copy_size;
  if (image.size() < least_to_share) {
    return holds_part(run.package, image, file, 0, run.buffers[0]);
  }
  const std::size_t half = image.size() / 2;
  auto second = std::async([&] {
    return holds_part(run.package, image.subspan(half), file, static_cast<off_t>(half),
                      run.buffers[1]);
  });
  const bool holds_first = holds_part(run.package, image.first(half), file, 0, run.buffers[0]);
  return second.get() && holds_first;
}

input_comparison compare_image(comparing& run, const morvane_view_dvi& dvi,
                               const std::string& path) {
  const readable_file file = open_to_read(path);
  if (!file.handle.is_open()) {
    return {.path = path, .error = errno};
  }
  const auto image = image_of(run.view, dvi);
  return {.are_same = image.size() == dvi.dvi_img_size && holds_image(run, image, file.handle)};
}

bool has_header_of(const morvane_view& view, const pack_inputs& inputs) {
  return view.version == version_word && view.HASH == revision_hash() &&
         view.dvi_num == inputs.headers.size();
}

}  // namespace

input_comparison compare_with_inputs(const package_bytes& package, const pack_inputs& inputs) {
  comparing run{.package = package};
  const auto bytes = package.bytes();
  const int opened = morvane_view_open(&run.view, bytes.data(), bytes.size(), nullptr);
  input_comparison result{.are_same = opened == MORVANE_VIEW_OK && has_header_of(run.view, inputs)};
  morvane_view_dvi dvi{};
  int walk = morvane_view_first(&run.view, &dvi);
  for (std::size_t i = 0; result.are_same && walk == MORVANE_VIEW_OK; ++i) {
    const input_entry& header = inputs.headers[i];
    result = compare_header(run, dvi, join_path(inputs.folder, header.name), header.index);
    if (result.are_same) {
      result = compare_image(run, dvi, join_path(inputs.folder, inputs.dvis[i].name));
    }
    walk = morvane_view_next(&run.view, &dvi);
  }
  return result;
}

bool is_sound(const package_bytes& package, const verdict_request& request, console& streams,
              package_summary& summary) {
  finding_counts counts;
  const check_scope scope{.vproc =
                              request.vproc ? vproc_demand::required : vproc_demand::forbidden};
  const auto tell = [&](finding found) {
    found.file = request.package;
    count(found, counts);
    write_finding_line(streams, found);
  };
  summary = check_package(package.bytes(), scope, tell, [](std::uint64_t /*done*/) {});
  return counts.errors == 0 && !(request.warnings_are_errors && counts.warnings > 0);
}

}  // namespace morvane::companion
