#include "companion/pack_verification.h"

#include <fcntl.h>
#include <morvane/package_view.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <future>
#include <vector>

#include "companion/finding_output.h"
#include "companion/opened_package.h"
#include "format/build_constants.h"

namespace morvane::companion {

namespace {

/// What two threads read images into.
using image_buffers = std::array<std::vector<std::byte>, 2>;

/// A comparison on its way over the DVIs. The memory is used for one image after the other.
struct comparing {
  const package_bytes& package;
  morvane_view view{};
  image_buffers buffers{};
};

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
  const file_handle file = open_at(AT_FDCWD, path, O_RDONLY | O_NONBLOCK);
  if (!file.is_open()) {
    return {.path = path, .error = errno};
  }
  const auto image = image_of(run.view, dvi);
  return {.are_same = image.size() == dvi.dvi_img_size && holds_image(run, image, file)};
}

/// Whether the package holds these bytes at an offset.
bool holds_bytes(const morvane_view& view, std::size_t offset, std::span<const std::byte> bytes) {
  return bytes.empty() || (offset <= view.size && bytes.size() <= view.size - offset &&
                           std::memcmp(std::span(view.bytes, view.size).subspan(offset).data(),
                                       bytes.data(), bytes.size()) == 0);
}

bool holds_records(const morvane_view& view, const morvane_view_dvi& dvi,
                   const described_dvi& described) {
  const bool has_vproc = morvane_view_need_vproc(&view) == MORVANE_VIEW_OK;
  return holds_bytes(view, dvi.offset, bytes_of(described.dvi)) &&
         holds_bytes(view, dvi.block, described.ports) &&
         (!has_vproc || (holds_bytes(view, dvi.vproc_offset, bytes_of(described.vproc)) &&
                         holds_bytes(view, dvi.vproc_block, described.vproc_records)));
}

bool has_header_of(const morvane_view& view, const pack_inputs& inputs) {
  return view.version == version_word && view.HASH == revision_hash() &&
         view.dvi_num == inputs.headers.size();
}

/// Compares every DVI whose position is one of a number of shares.
input_comparison compare_share(const morvane_view& view, const package_bytes& package,
                               const pack_inputs& inputs, const described_dvis& described,
                               std::size_t share, std::size_t shares) {
  comparing run{.package = package, .view = view};
  input_comparison result{.are_same = true};
  constexpr std::size_t step = std::size_t{1} << 20U;  // bytes that are given back at a time
  std::size_t kept = 0;                                // bytes from here on are still in memory
  morvane_view_dvi dvi{};
  int walk = morvane_view_first(&run.view, &dvi);
  for (std::size_t i = 0; result.are_same && walk == MORVANE_VIEW_OK; ++i) {
    if (i % shares == share) {
      result.are_same = holds_records(run.view, dvi, described[i]);
      if (result.are_same) {
        result = compare_image(run, dvi, join_path(inputs.folder, inputs.dvis[i].name));
      }
    }
    if (dvi.block - kept >= step) {
      package.release(kept, dvi.block - kept);
      kept = dvi.block;
    }
    walk = morvane_view_next(&run.view, &dvi);
  }
  return result;
}

}  // namespace

input_comparison compare_with_inputs(const package_bytes& package, const pack_inputs& inputs,
                                     const described_dvis& described) {
  constexpr std::size_t least_to_share = 16;  // of few DVIs the images are large, or all is short
  morvane_view view{};
  const auto bytes = package.bytes();
  const int opened = morvane_view_open(&view, bytes.data(), bytes.size(), nullptr);
  if (opened != MORVANE_VIEW_OK || !has_header_of(view, inputs) ||
      described.size() != inputs.dvis.size()) {
    return {};
  }
  if (described.size() < least_to_share) {
    return compare_share(view, package, inputs, described, 0, 1);
  }
  auto odd = std::async([&] { return compare_share(view, package, inputs, described, 1, 2); });
  const input_comparison even = compare_share(view, package, inputs, described, 0, 2);
  const input_comparison other = odd.get();
  return even.are_same ? other : even;
}

bool is_sound(const package_bytes& package, const std::string& path, bool vproc, console& streams,
              package_summary& summary) {
  finding_counts counts;
  const check_scope scope{.vproc = vproc ? vproc_demand::required : vproc_demand::forbidden};
  const auto tell = [&](finding found) {
    if (level_of(found) == severity::error) {
      found.file = path;
      count(found, counts);
      write_finding_line(streams, found);
    }
  };
  summary = check_package(package.bytes(), scope, tell, [](std::uint64_t /*done*/) {});
  return counts.errors == 0;
}

}  // namespace morvane::companion
