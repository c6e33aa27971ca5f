#include "cli/pack/pack_verification.h"

#include <fcntl.h>
#include <morvane/package_view.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

#include "cli/findings/finding_output.h"
#include "cli/package/opened_package.h"
#include "format/build_constants.h"

namespace morvane::cli {

namespace {

/// A comparison on its way over the DVIs. The buffer is used for one image after the other.
struct comparing {
  const package_bytes& package;
  const progress_sink& progress;
  morvane_view view{};
  std::vector<std::byte> buffer = std::vector<std::byte>(chunk_size);
};

/// Compares an image with its file. The file is read, not mapped: it may be cut meanwhile.
input_comparison compare_image(comparing& run, const morvane_view_dvi& dvi,
                               const std::string& path) {
  const file_handle file = open_at(AT_FDCWD, path, O_RDONLY | O_NONBLOCK);
  if (!file.is_open()) {
    return {.path = path, .error = errno};
  }
  auto image = image_of(run.view, dvi);
  bool are_same = image.size() == dvi.dvi_img_size;
  for (off_t offset = 0; are_same && !image.empty();) {
    const auto written = image.first(std::min(image.size(), run.buffer.size()));
    const auto bytes = std::span(run.buffer).first(written.size());
    run.package.fetch(written);
    const bytes_read read = read_bytes_at(file, offset, bytes);
    if (read.error != 0) {
      return {.path = path, .error = read.error};
    }
    are_same =
        read.count == bytes.size() && std::memcmp(bytes.data(), written.data(), bytes.size()) == 0;
    run.package.release(written);
    run.progress(dvi.block + static_cast<std::uint64_t>(offset));
    image = image.subspan(written.size());
    offset += static_cast<off_t>(written.size());
  }
  return {.are_same = are_same};
}

/// Whether the package holds these bytes at an offset.
bool holds_bytes(const morvane_view& view, std::size_t offset, std::span<const std::byte> bytes) {
  return bytes.empty() || (offset <= view.size && bytes.size() <= view.size - offset &&
                           std::memcmp(std::span(view.bytes, view.size).subspan(offset).data(),
                                       bytes.data(), bytes.size()) == 0);
}

bool holds_records(const morvane_view& view, const morvane_view_dvi& dvi,
                   const parsed_dvi& parsed) {
  const bool has_vproc = morvane_view_need_vproc(&view) == MORVANE_VIEW_OK;
  return holds_bytes(view, dvi.offset, bytes_of(parsed.dvi)) &&
         holds_bytes(view, dvi.block, parsed.ports) &&
         (!has_vproc || (holds_bytes(view, dvi.vproc_offset, bytes_of(parsed.vproc)) &&
                         holds_bytes(view, dvi.vproc_block, parsed.vproc_records)));
}

bool has_header_of(const morvane_view& view, const pack_inputs& inputs) {
  return view.version == version_word && view.HASH == revision_hash() &&
         view.dvi_num == inputs.headers.size();
}

/// Compares every DVI.
input_comparison compare_dvis(comparing& run, const pack_inputs& inputs,
                              const parsed_dvis& parsed) {
  constexpr std::size_t step = std::size_t{1} << 20U;  // bytes that are given back at a time
  input_comparison result{.are_same = true};
  std::size_t kept = 0;  // bytes from here on are still in memory
  morvane_view_dvi dvi{};
  int walk = morvane_view_first(&run.view, &dvi);
  for (std::size_t i = 0; result.are_same && walk == MORVANE_VIEW_OK; ++i) {
    run.progress(dvi.block);
    result.are_same = holds_records(run.view, dvi, parsed[i]);
    if (result.are_same) {
      result = compare_image(run, dvi, join_path(inputs.folder, inputs.dvis[i].name));
    }
    if (dvi.block - kept >= step) {
      run.package.release(kept, dvi.block - kept);
      kept = dvi.block;
    }
    walk = morvane_view_next(&run.view, &dvi);
  }
  return result;
}

}  // namespace

input_comparison compare_with_inputs(const package_bytes& package, const pack_inputs& inputs,
                                     const parsed_dvis& parsed, const progress_sink& progress) {
  comparing run{.package = package, .progress = progress};
  const auto bytes = package.bytes();
  const int opened = morvane_view_open(&run.view, bytes.data(), bytes.size(), nullptr);
  if (opened != MORVANE_VIEW_OK || !has_header_of(run.view, inputs) ||
      parsed.size() != inputs.dvis.size()) {
    return {};
  }
  return compare_dvis(run, inputs, parsed);
}

bool is_sound(const package_bytes& package, const std::string& path, bool vproc, console& streams,
              package_summary& summary) {
  finding_writer output{.json = {.streams = streams}};
  const check_scope scope{.vproc = vproc ? vproc_demand::required : vproc_demand::forbidden};
  const auto report = [&](finding found) {
    if (level_of(found) == severity::error) {
      found.file = path;
      write_finding(output, found);
    }
  };
  summary = check_package(package.bytes(), scope, report, [](std::uint64_t /*done*/) {});
  return output.counts.errors == 0;
}

}  // namespace morvane::cli
