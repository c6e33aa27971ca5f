// The order of everything in a package, told once for those who write it and who compare it.
#pragma once

#include <algorithm>
#include <cstddef>

#include "cli/lint/parsed_dvi.h"
#include "driver/pack_sections.h"
#include "io/file.h"

namespace morvane::cli {

/// Hands over every part of a package from front to back: records by visit(bytes), an image by
/// visit_image(path, size). Ends early where one of these returns false.
template <class Visitor>
void visit_parts(const pack_inputs& inputs, const parsed_dvis& parsed, bool vproc,
                 Visitor& visitor) {
  const pkg_header header = header_of(parsed.size());
  const auto visit_all = [&](auto bytes_in) {
    return std::ranges::all_of(parsed,
                               [&](const parsed_dvi& one) { return visitor.visit(bytes_in(one)); });
  };
  bool goes_on = visitor.visit(bytes_of(header)) &&
                 visit_all([](const parsed_dvi& one) { return bytes_of(one.dvi); });
  for (std::size_t i = 0; goes_on && i < parsed.size(); ++i) {
    goes_on = visitor.visit(parsed[i].ports) &&
              visitor.visit_image(join_path(inputs.folder, inputs.dvis[i].name),
                                  parsed[i].dvi.dvi_img_size);
  }
  if (goes_on && vproc && visit_all([](const parsed_dvi& one) { return bytes_of(one.vproc); })) {
    visit_all([](const parsed_dvi& one) { return std::span(one.vproc_records); });
  }
}

}  // namespace morvane::cli
