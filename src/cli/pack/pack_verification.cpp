#include "cli/pack/pack_verification.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

#include "cli/pack/package_layout.h"

namespace morvane::cli {

namespace {

/// A comparison on its way from the front of the package to its back.
struct comparing {
  const package_bytes& package;
  const progress_sink& progress;
  std::size_t offset = 0;  // of the next part
  std::size_t kept = 0;    // bytes from here on are still in memory
  std::vector<std::byte> buffer = std::vector<std::byte>(chunk_size);
  input_comparison result{.are_same = true};

  /// Whether these are the next bytes of the package.
  bool visit(std::span<const std::byte> bytes) {
    give_back();
    const auto rest = package.bytes().subspan(offset);
    const auto written = rest.first(std::min(bytes.size(), rest.size()));
    package.fetch(written);
    offset += written.size();
    result.are_same =
        bytes.empty() || (written.size() == bytes.size() &&
                          std::memcmp(written.data(), bytes.data(), bytes.size()) == 0);
    return result.are_same;
  }

  /// Whether an image comes next. Its file is read, not mapped: it may be cut meanwhile.
  bool visit_image(const std::string& path, std::uint32_t size) {
    progress(offset);
    const file_handle file = open_at(AT_FDCWD, path, O_RDONLY | O_NONBLOCK);
    if (!file.is_open()) {
      result = {.path = path, .error = errno};
    }
    for (std::size_t begin = 0; result.are_same && begin < size; begin += buffer.size()) {
      const auto bytes = std::span(buffer).first(std::min(size - begin, buffer.size()));
      const bytes_read read = read_bytes_at(file, static_cast<off_t>(begin), bytes);
      if (read.error != 0) {
        result = {.path = path, .error = read.error};
      } else {
        result.are_same = read.count == bytes.size() && visit(bytes);
      }
    }
    return result.are_same;
  }

  /// Gives back the memory of what was compared, many bytes at a time.
  void give_back() {
    constexpr std::size_t step = std::size_t{1} << 20U;
    if (offset - kept >= step) {
      progress(offset);
      package.release(kept, offset - kept);
      kept = offset;
    }
  }
};

}  // namespace

input_comparison compare_with_inputs(const package_bytes& package, const pack_inputs& inputs,
                                     const parsed_dvis& parsed, bool vproc,
                                     const progress_sink& progress) {
  comparing run{.package = package, .progress = progress};
  visit_parts(inputs, parsed, vproc, run);
  run.result.are_same = run.result.are_same && run.offset == package.bytes().size();
  return run.result;
}

bool is_sound(const package_bytes& package, const std::string& path, bool vproc,
              finding_writer& output, package_summary& summary) {
  set_folder(output, folder_of(path));
  const std::uint64_t errors_before = output.counts.errors;
  const check_scope scope{.vproc = vproc ? vproc_demand::required : vproc_demand::forbidden};
  const auto report = [&](finding found) {
    if (level_of(found) == severity::error) {
      found.file = path;
      write_finding(output, found);
    }
  };
  morvane_view view{};
  morvane_view_damage damage{};
  morvane_view_open(&view, package.bytes().data(), package.bytes().size(), &damage);
  summary = check_package(view, damage, scope, report, [](std::uint64_t /*done*/) {});
  return output.counts.errors == errors_before;
}

}  // namespace morvane::cli
