#include "cli/package/opened_package.h"

#include "cli/output/printable_text.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

int open_package(const std::string& path, opened_package& package) {
  package.path = path;
  if (const int error = package.bytes.load(path); error != 0) {
    return error;
  }
  open_bytes(package);
  return 0;
}

void open_bytes(opened_package& package) {
  const auto bytes = package.bytes.bytes();
  morvane_view_open(&package.view, bytes.data(), bytes.size(), &package.damage);
}

int open_or_report(const std::string& path, opened_package& package) {
  const int error = open_package(path, package);
  return error == 0 ? status_fine : report_file_error(path, error);
}

void warn_of_damage(const opened_package& package, std::string_view participle, console& streams) {
  if (is_damaged(package) && !streams.quiet) {
    flush_results(streams);
    print_message(joined(printable(package.path),
                         ": the package is damaged; only what comes before the damage is ",
                         participle, ", and morvane check tells more"));
  }
}

std::uint64_t release_dvi(const opened_package& package, const morvane_view_dvi& dvi) {
  const std::uint64_t count = port_count(dvi) * sizeof(morvane_port_desc) + dvi.dvi_img_size;
  package.bytes.release(dvi.block, count);
  package.bytes.release(dvi.vproc_block, dvi.vproc_records_size);
  return dvi.block + count;
}

std::span<const std::uint8_t> image_of(const morvane_view& view, const morvane_view_dvi& dvi) {
  morvane_bytes image{};
  const bool is_there = morvane_view_image(&view, &dvi, &image) == MORVANE_VIEW_OK;
  return {is_there ? image.bytes : view.bytes, is_there ? image.size : 0};
}

}  // namespace morvane::cli
