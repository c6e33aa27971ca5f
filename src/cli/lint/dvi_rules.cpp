#include "cli/lint/dvi_rules.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "cli/output/printable_text.h"
#include "cli/package/overlaps.h"

namespace morvane::cli {

namespace {

/// The place of the last value of a DAG's field; that of the DAG's name if it has none.
std::size_t place_of_field(const header_reading& reading, std::size_t field, bool& is_given) {
  const auto& values = reading.of(object_kind::dag).values;
  const auto last = std::find_if(values.rbegin(), values.rend(), [&](const taken_value& value) {
    return dag_macros.at(value.row).offset == field;
  });
  is_given = last != values.rend();
  return is_given ? last->place
                  : static_cast<std::size_t>(reading.dag_name.data() - reading.header.data());
}

/// The bit of the DAG's macro with a field.
constexpr std::uint64_t row_of(std::size_t field) {
  const auto* const row = std::ranges::find(dag_macros, field, &macro_row::offset);
  return std::uint64_t{1} << (row - dag_macros.begin());
}

constexpr std::uint64_t size_row = row_of(offsetof(dvi_desc, dvi_img_size));

/// Adds a finding, to what it follows from if one of the macros of the DAG has a finding already.
void add(header_findings& findings, header_finding found, std::uint64_t dag_rows) {
  if (header_finding* const cause = cause_of(findings, dag_rows)) {
    add_effect(*cause, std::move(found));
  } else {
    findings.push_back(std::move(found));
  }
}

}  // namespace

void check_image(const header_reading& reading, const file_state& image,
                 header_findings& findings) {
  bool is_given = false;
  const std::size_t place = place_of_field(reading, offsetof(dvi_desc, dvi_img_size), is_given);
  const std::uint32_t size = reading.dvi.dvi_img_size;
  const auto present = static_cast<std::uint64_t>(image.size);
  const auto add_fault = [&](const finding_kind* kind, std::string text) {
    add(findings,
        {.kind = kind,
         .place = place,
         .text = std::move(text),
         .level = severity::error,
         .dag_rows = size_row},
        size_row);
  };
  if (reading.dag_name.empty() || image.error != 0) {
    return;
  }
  if (size > std::uint32_t{std::numeric_limits<std::int32_t>::max()}) {
    add_fault(kind_of("negative-image-size"),
              joined("an image of ", count_of(size, "byte"), " is too large, at most ",
                     std::numeric_limits<std::int32_t>::max(), " fit: nothing can be packed"));
  } else if (present < size) {
    add_fault(kind_of("image-too-short"),
              joined("the image has ", count_of(present, "byte"), ", but the header says ", size,
                     ": nothing can be packed"));
  } else if (present == 0) {
    add_fault(kind_of("empty-image"),
              "the image has 0 bytes: the package would have a DVI without one");
  } else if (!is_given) {
    add_fault(kind_of("no-image-size"),
              joined("the header has no macro for the size of the image: the image, ",
                     count_of(present, "byte"), ", is left out of the package"));
  } else if (present > size) {
    add_fault(
        kind_of("image-too-long"),
        joined("the image has ", count_of(present, "byte"), ", but the header says ", size,
               size == 0 ? ": it is left out"
                         : joined("; left out at its end: ", count_of(present - size, "byte"))));
  }
}

void check_block(const header_reading& reading, bool with_notes, header_findings& findings) {
  if (reading.dag_name.empty()) {
    return;
  }
  const dvi_desc& dvi = reading.dvi;
  bool is_given = false;
  const std::size_t place = place_of_field(reading, offsetof(dvi_desc, dvi_dag_vaddr), is_given);
  const auto name_place = static_cast<std::size_t>(reading.dag_name.data() - reading.header.data());
  const used_range image = image_range(0, dvi.dvi_img_vaddr, dvi.dvi_img_size);
  if (is_given && dvi.dvi_img_size != 0 && !is_inside(dvi.dvi_dag_vaddr, image)) {
    add(findings,
        {.kind = kind_of("dagbin-outside-image"),
         .place = place,
         .text = joined("the DAG binary is at ", hexadecimal(dvi.dvi_dag_vaddr),
                        ", outside the image, which has ", range_text(image))},
        row_of(offsetof(dvi_desc, dvi_dag_vaddr)) | row_of(offsetof(dvi_desc, dvi_img_vaddr)) |
            size_row);
  }
  const std::uint64_t ports = std::uint64_t{dvi.input_num} + dvi.output_num;
  const std::uint64_t whole = dvi.dvi_img_size + ports * sizeof(port_desc);
  if (whole > std::numeric_limits<std::uint32_t>::max()) {
    findings.push_back({.kind = kind_of("size-overflow"),
                        .place = name_place,
                        .text = joined("the image and the ports have ", count_of(whole, "byte"),
                                       ": dvi_pkg_size becomes ", dvi.dvi_pkg_size)});
  }
  if (with_notes && ports == 0) {
    findings.push_back({.kind = kind_of("no-ports"),
                        .place = name_place,
                        .text = "the header introduces no input and no output"});
  }
}

}  // namespace morvane::cli
