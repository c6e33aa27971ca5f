#include "companion/pack_verification.h"

#include <morvane/package_view.h>

#include "companion/digest.h"
#include "companion/finding_output.h"
#include "companion/header_records.h"
#include "companion/package_bytes.h"
#include "companion/package_walk.h"
#include "companion/printable_text.h"

namespace morvane::companion {

namespace {

/// Writes the findings about a package. Returns whether it may take its place.
bool is_sound(const package_bytes& package, const verification_request& request, console& streams,
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

std::string_view characters(std::span<const std::uint8_t> bytes) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the bytes of a text are characters
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

int report_change(std::string_view path) {
  print_message(joined(printable(path), ": was changed while it was packed"));
  return status_failed;
}

/// Compares the records of every DVI with its header.
int compare_records(const package_bytes& package, const pack_inputs& inputs) {
  morvane_view view{};
  morvane_view_dvi dvi{};
  morvane_view_open(&view, package.bytes().data(), package.bytes().size(), nullptr);
  int walk = morvane_view_first(&view, &dvi);
  for (const input_entry& header : inputs.headers) {
    const std::string path = join_path(inputs.folder, header.name);
    package_bytes text;
    if (const int error = text.load(path); error != 0) {
      return report_file_error(path, error);
    }
    if (walk != MORVANE_VIEW_OK ||
        !holds_records_of(view, dvi, characters(text.bytes()), header.index)) {
      return report_change(path);
    }
    package.release(dvi.block, dvi.dvi_pkg_size);
    walk = morvane_view_next(&view, &dvi);
  }
  return status_fine;
}

}  // namespace

int verify(const verification_request& request, const pack_inputs& inputs, console& streams,
           package_summary& summary) {
  package_bytes package;
  if (const int error = package.load(request.temporary); error != 0) {
    return report_file_error(request.temporary, error);
  }
  if (xxh3_128(package, package.bytes()) != request.digest) {
    print_message(joined(printable(request.temporary), ": does not hold what was written to it"));
    return status_failed;
  }
  if (!is_sound(package, request, streams, summary)) {
    return status_findings;
  }
  return compare_records(package, inputs);
}

}  // namespace morvane::companion
