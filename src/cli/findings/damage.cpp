#include "cli/findings/damage.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "cli/output/printable_text.h"
#include "cli/package/package_walk.h"

namespace morvane::cli {

namespace {

/// What the reader of packages refuses: the kind of the finding and what the message says.
struct refusal {
  int status;
  const finding_kind* kind;
  std::string_view what;   // the part that is cut, or the field that disagrees
  std::string_view parts;  // what a field that disagrees counts
  bool is_of_a_dvi;
};

constexpr std::array<refusal, 10> refusals{{
    {MORVANE_VIEW_HEADER_CUT, kind_of("header-cut"), "the header is", "", false},
    {MORVANE_VIEW_DVI_TABLE_CUT, kind_of("dvi-table-cut"), "the DVI table is", "", false},
    {MORVANE_VIEW_BLOCK_SIZE_DISAGREES, kind_of("block-size-disagrees"), "dvi_pkg_size",
     "the ports and the image", true},
    {MORVANE_VIEW_PORTS_CUT, kind_of("ports-cut"), "the ports are", "", true},
    {MORVANE_VIEW_IMAGE_CUT, kind_of("image-cut"), "the image is", "", true},
    {MORVANE_VIEW_VPROC_TABLE_CUT, kind_of("vproc-table-cut"), "the vproc table is", "", false},
    {MORVANE_VIEW_VPROC_SIZE_DISAGREES, kind_of("vproc-size-disagrees"), "vproc_records_size",
     "the variables and SMB blocks", true},
    {MORVANE_VIEW_VARIABLES_CUT, kind_of("variables-cut"), "the variables are", "", true},
    {MORVANE_VIEW_SMBS_CUT, kind_of("smbs-cut"), "the SMB blocks are", "", true},
    {MORVANE_VIEW_BYTES_LEFT_OVER, kind_of("bytes-left-over"), "", "", false},
}};

const refusal& refusal_of(int status) {
  return *std::ranges::find(refusals, status, &refusal::status);
}

std::string message(const refusal& row, const morvane_view_damage& damage) {
  if (damage.status == MORVANE_VIEW_BYTES_LEFT_OVER) {
    return joined(count_of(damage.present, "byte"), damage.present == 1 ? " is" : " are",
                  " left over after the last record");
  }
  if (!row.parts.empty()) {
    return joined(row.what, " is ", damage.claimed, ", but ", row.parts, " have ",
                  count_of(damage.present, "byte"));
  }
  return joined(row.what, " cut: ", count_of(damage.claimed, "byte"),
                damage.claimed == 1 ? " is" : " are", " needed, and ", damage.present,
                damage.present == 1 ? " is left" : " are left");
}

}  // namespace

const finding_kind& kind_of_damage(int status) {
  return *refusal_of(status).kind;
}

void report_damage(const morvane_view_damage& damage, const finding_sink& sink) {
  const refusal& row = refusal_of(damage.status);
  std::string where;
  if (row.is_of_a_dvi) {
    append_pieces(where, str(record_name{.dvi = damage.dvi}), ": ");
  }
  report(sink, row.kind, damage.offset, joined(where, message(row, damage)));
}

}  // namespace morvane::cli
