// The input is a package; the reader for loaders opens it and hands out everything in it.

#include <algorithm>
#include <exception>
#include <memory>

#include "fuzz/fuzz_target.h"
#include "view/whole_package.h"

namespace morvane::test {
namespace {

/// The accessors on a view that does not fit its package: the fields come from the input's end.
void read_wild_view(morvane_view view, const std::uint8_t* data, std::size_t size) {
  const auto wild = [&](std::size_t i) { return i < size ? data[size - 1 - i] * 0x01010101U : 0; };
  view.dvi_num = view.sound_dvis = wild(0);
  view.sound_vprocs = wild(1);
  view.vproc_table = wild(2) % 4096;
  morvane_view_dvi dvi{};
  for (int status = morvane_view_first(&view, &dvi); status == MORVANE_VIEW_OK;
       status = morvane_view_next(&view, &dvi)) {
    dvi.block = wild(3) % 4096;
    dvi.vproc_block = wild(4) % 4096;
    dvi.input_num = wild(5);
    dvi.variable_num = wild(6);
    morvane_view_port port{};
    morvane_view_var variable{};
    morvane_view_smb_block smb{};
    morvane_bytes image{};
    for (const std::uint32_t index : {0U, 1U, wild(7)}) {
      morvane_view_input(&view, &dvi, index, &port);
      morvane_view_output(&view, &dvi, index, &port);
      morvane_view_variable(&view, &dvi, index, &variable);
      morvane_view_smb(&view, &dvi, index, &smb);
    }
    morvane_view_image(&view, &dvi, &image);
  }
}

}  // namespace
}  // namespace morvane::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane::test;
  // A copy that is exactly as long: the sanitizer sees a read of the first byte beyond it.
  const auto bytes = std::make_unique<std::uint8_t[]>(size);
  std::copy_n(data, size, bytes.get());
  morvane_view view{};
  morvane_view_damage damage{};
  const int status = morvane_view_open(&view, bytes.get(), size, &damage);
  require(status <= MORVANE_VIEW_OK && status >= MORVANE_VIEW_BYTES_LEFT_OVER,
          "opening ends with success or a kind of damage");
  require(status == MORVANE_VIEW_OK ? view.sound_dvis == view.dvi_num
                                    : damage.status == status && damage.offset <= size,
          "a damage has its place in the package");
  try {
    const reached all = read_whole_package(view);
    require(status != MORVANE_VIEW_OK || all.records >= view.dvi_num, "all records are reached");
  } catch (const std::exception& broken) {
    require(false, broken.what());
  }
  read_wild_view(view, bytes.get(), size);
  require(std::equal(data, data + size, bytes.get()), "the package stays as it is");
  return 0;
}
