#include "companion/damage.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "companion/record_rules.h"
#include "io/message.h"

namespace morvane::companion {

namespace {

/// What the reader of packages refuses: the kind of the finding, and what it says between the name
/// of the DVI and the two numbers.
struct refusal {
  int status;
  const finding_kind* kind;
  std::string_view text;
  bool is_of_a_dvi;
};

constexpr std::array<refusal, 10> refusals{{
    {MORVANE_VIEW_HEADER_CUT, kind_of("header-cut"), "the header is cut", false},
    {MORVANE_VIEW_DVI_TABLE_CUT, kind_of("dvi-table-cut"), "the DVI table is cut", false},
    {MORVANE_VIEW_BLOCK_SIZE_DISAGREES, kind_of("block-size-disagrees"),
     "dvi_pkg_size disagrees with the ports and the image", true},
    {MORVANE_VIEW_PORTS_CUT, kind_of("ports-cut"), "the ports are cut", true},
    {MORVANE_VIEW_IMAGE_CUT, kind_of("image-cut"), "the image is cut", true},
    {MORVANE_VIEW_VPROC_TABLE_CUT, kind_of("vproc-table-cut"), "the vproc table is cut", false},
    {MORVANE_VIEW_VPROC_SIZE_DISAGREES, kind_of("vproc-size-disagrees"),
     "vproc_records_size disagrees with the variables and SMB blocks", true},
    {MORVANE_VIEW_VARIABLES_CUT, kind_of("variables-cut"), "the variables are cut", true},
    {MORVANE_VIEW_SMBS_CUT, kind_of("smbs-cut"), "the SMB blocks are cut", true},
    {MORVANE_VIEW_BYTES_LEFT_OVER, kind_of("bytes-left-over"),
     "bytes are left over after the last record", false},
}};

const refusal& refusal_of(int status) {
  return *std::ranges::find(refusals, status, &refusal::status);
}

}  // namespace

const finding_kind& kind_of_damage(int status) {
  return *refusal_of(status).kind;
}

void tell_damage(const morvane_view_damage& damage, const finding_sink& sink) {
  const refusal& row = refusal_of(damage.status);
  std::string text;
  if (row.is_of_a_dvi) {
    append_pieces(text, str(record_name{.dvi = damage.dvi}), ": ");
  }
  append_pieces(text, row.text);
  if (damage.status == MORVANE_VIEW_BYTES_LEFT_OVER) {
    append_pieces(text, ": ", damage.present);
  } else {
    append_pieces(text, ": it says ", damage.claimed, " bytes, and there are ", damage.present);
  }
  tell(sink, row.kind, damage.offset, std::move(text));
}

}  // namespace morvane::companion
