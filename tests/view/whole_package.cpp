#include "view/whole_package.h"

#include <stdexcept>
#include <string>

#include "view/opened_package.h"

namespace morvane::test {

namespace {

void expect(bool holds, const char* promise) {
  if (!holds) {
    throw std::logic_error(promise);
  }
}

struct reading {
  const morvane_view& view;
  reached sum{};
};

/// Both ends of a range: a sanitizer notices missing bytes.
void touch(reading& all, const void* begin, std::size_t size) {
  const auto* bytes = static_cast<const volatile std::uint8_t*>(begin);
  const auto offset =
      static_cast<std::size_t>(static_cast<const std::uint8_t*>(begin) - all.view.bytes);
  expect(offset <= all.view.size && size <= all.view.size - offset, "what is handed out is inside");
  if (size > 0) {
    all.sum.bytes += size + (bytes[0] & bytes[size - 1] & 0);
  }
}

void touch_record(reading& all, std::size_t offset, std::size_t size) {
  touch(all, all.view.bytes + offset, size);
  ++all.sum.records;
}

void touch_text(reading& all, morvane_text text, std::size_t width) {
  touch(all, text.bytes, text.length);
  expect(text.length <= width, "a text ends with its field");
  expect(str(text).find('\0') == std::string::npos, "a text ends at its first NUL");
}

void read_ports(reading& all, const morvane_view_dvi& dvi) {
  morvane_view_port port{};
  for (std::uint32_t i = 0; i < dvi.input_num + std::uint64_t{dvi.output_num}; ++i) {
    expect(
        (i < dvi.input_num ? morvane_view_input(&all.view, &dvi, i, &port)
                           : morvane_view_output(&all.view, &dvi, i - dvi.input_num, &port)) == 0,
        "every port is reached");
    touch_record(all, port.offset, 1080);
    touch_text(all, port.port_name, 512);
    touch_text(all, port.layer_name, 512);
  }
  expect(morvane_view_input(&all.view, &dvi, dvi.input_num, &port) == MORVANE_VIEW_OUT_OF_RANGE,
         "there is no input behind the last");
  expect(morvane_view_output(&all.view, &dvi, dvi.output_num, &port) == MORVANE_VIEW_OUT_OF_RANGE,
         "there is no output behind the last");
}

void read_vproc(reading& all, const morvane_view_dvi& dvi) {
  morvane_view_var variable{};
  for (std::uint32_t i = 0; i < dvi.variable_num; ++i) {
    expect(morvane_view_variable(&all.view, &dvi, i, &variable) == 0, "every variable is reached");
    touch_record(all, variable.offset, 136);
    touch_text(all, variable.var, 128);
  }
  morvane_view_smb_block smb{};
  for (std::uint32_t i = 0; i < dvi.smb_num; ++i) {
    expect(morvane_view_smb(&all.view, &dvi, i, &smb) == 0, "every SMB is reached");
    touch_record(all, smb.offset, 132);
    touch_text(all, smb.smb_name, 128);
  }
  expect(morvane_view_variable(&all.view, &dvi, dvi.variable_num, &variable) ==
                 MORVANE_VIEW_OUT_OF_RANGE &&
             morvane_view_smb(&all.view, &dvi, dvi.smb_num, &smb) == MORVANE_VIEW_OUT_OF_RANGE,
         "there is nothing behind the last");
}

void read_dvi(reading& all, const morvane_view_dvi& dvi) {
  touch_record(all, dvi.offset, 156);
  touch_text(all, dvi.dag_name, 128);
  morvane_view_dvi found{};
  expect(morvane_view_find(&all.view, str(dvi.dag_name).c_str(), &found) == 0 &&
             found.position <= dvi.position && str(found.dag_name) == str(dvi.dag_name),
         "a DVI is found by its name");
  read_ports(all, dvi);
  morvane_bytes image{};
  expect(morvane_view_image(&all.view, &dvi, &image) == 0, "every image is reached");
  touch(all, image.bytes, image.size);
  if (dvi.vproc_offset != 0) {
    touch_record(all, dvi.vproc_offset, 12);
  }
  read_vproc(all, dvi);
}

}  // namespace

reached read_whole_package(const morvane_view& view) {
  reading all{.view = view};
  morvane_view_dvi dvi{};
  int status = morvane_view_first(&view, &dvi);
  std::uint32_t dvis = 0;
  for (; status == MORVANE_VIEW_OK; status = morvane_view_next(&view, &dvi)) {
    expect(dvi.position == dvis, "the walk takes one step after the other");
    read_dvi(all, dvi);
    ++dvis;
  }
  expect(dvis == view.sound_dvis, "every sound DVI is reached");
  expect(dvis == 0 || status == MORVANE_VIEW_OUT_OF_RANGE, "the walk ends after the last DVI");
  return all.sum;
}

}  // namespace morvane::test
