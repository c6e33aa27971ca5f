#include "cli/check/record_rules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "cli/output/printable_text.h"
#include "cli/package/safe_names.h"

namespace morvane::cli {

namespace {

/// A text field: its name, and its offset in its record and width, in bytes.
struct text_field {
  std::string_view name;
  std::size_t offset;
  std::size_t width;
};

constexpr text_field dag_name_field{"dag_name", offsetof(morvane_dvi_desc, dag_name),
                                    MORVANE_NAME_WIDTH};
constexpr text_field port_name_field{"port_name", offsetof(morvane_port_desc, port_name),
                                     MORVANE_IO_NAME_WIDTH};
constexpr text_field layer_name_field{"layer_name", offsetof(morvane_port_desc, layer_name),
                                      MORVANE_IO_NAME_WIDTH};
constexpr text_field var_field{"var", offsetof(morvane_var_desc, var), MORVANE_NAME_WIDTH};
constexpr text_field smb_name_field{"smb_name", offsetof(morvane_smb_desc, smb_name),
                                    MORVANE_NAME_WIDTH};

/// A text in a package: its field, and its record with the offset of that, in bytes.
struct placed_text {
  morvane_text text;
  const text_field& field;
  const record_name& record;
  std::size_t record_offset;
};

/// A record whose text is wrong is not named by that.
void report(const finding_sink& sink, const finding_kind* kind, const placed_text& placed,
            std::size_t skipped, std::string_view what) {
  record_name numbered = placed.record;
  numbered.own = {};
  report(sink, kind, placed.record_offset + placed.field.offset + skipped,
         joined(str(numbered), ": ", placed.field.name, what));
}

/// Whether all bytes of a field are 0. The C library compares many at a time.
bool is_zero(std::string_view bytes) {
  static constexpr std::array<char, MORVANE_IO_NAME_WIDTH> zeros{};
  return bytes == std::string_view(zeros.data(), bytes.size());
}

/// A text must end inside its field, and nothing may follow it there.
void check_end(const placed_text& placed, const finding_sink& sink) {
  const std::size_t length = placed.text.length;
  const std::string_view rest(placed.text.bytes + length, placed.field.width - length);
  if (rest.empty()) {
    report(sink, kind_of("text-without-nul"), placed, 0, " has no NUL in its field");
  } else if (!is_zero(rest)) {
    report(sink, kind_of("bytes-after-nul"), placed, length + rest.find_first_not_of('\0'),
           " goes on after its NUL");
  }
}

void check_not_empty(const placed_text& placed, const finding_sink& sink) {
  if (placed.text.length == 0) {
    report(sink, kind_of("empty-name"), placed, 0, " is empty");
  }
}

void check_characters(const placed_text& placed, const finding_sink& sink) {
  if (holds_control_character(str(placed.text))) {
    report(sink, kind_of("control-character"), placed, 0,
           joined(" ", in_quotes(str(placed.text)), " holds a control character"));
  }
}

/// All three, for a name that must be there.
void check_name(const placed_text& placed, const finding_sink& sink) {
  check_end(placed, sink);
  check_not_empty(placed, sink);
  check_characters(placed, sink);
}

void check_dag_name(const placed_text& placed, const finding_sink& sink) {
  check_end(placed, sink);
  check_not_empty(placed, sink);
  const std::string_view unsafe = unsafe_part(str(placed.text));
  if (!unsafe.empty()) {
    report(sink, kind_of("unsafe-dag-name"), placed, 0,
           joined(" ", in_quotes(str(placed.text)), unsafe));
  }
}

/// A byte that must be 0. The offset is the byte's in the package.
void check_reserved(std::uint32_t byte, std::size_t offset, const record_name& name,
                    const finding_sink& sink) {
  if (byte != 0) {
    report(sink, kind_of("reserved-not-zero"), offset,
           joined(str(name), ": a reserved byte is ", byte, ", not 0"));
  }
}

void check_vproc_id(const morvane_view_dvi& dvi, const record_name& name,
                    const finding_sink& sink) {
  const std::uint32_t expected = dvi.position & 0xFFU;
  if (dvi.vproc_id != expected) {
    report(sink, kind_of("wrong-vproc-id"), dvi.offset + offsetof(morvane_dvi_desc, vproc_id),
           joined(str(name), ": vproc_id is ", dvi.vproc_id, ", not ", expected));
  }
}

void check_flags(const morvane_view_port& port, const record_name& name, const finding_sink& sink) {
  constexpr unsigned known = MORVANE_PORT_BITVECTOR | MORVANE_PORT_DROTATE | MORVANE_PORT_HFLIP |
                             MORVANE_PORT_VFLIP | MORVANE_PORT_DFLIP | MORVANE_PORT_PFLIP;
  if ((port.flags & ~known) != 0) {
    report(sink, kind_of("unknown-flags"), port.offset + offsetof(morvane_port_desc, flags),
           joined(str(name), ": flags is ", port.flags, ", but bits 6 and 7 must be 0"));
  }
}

}  // namespace

void check_dvi(const morvane_view_dvi& dvi, const finding_sink& sink) {
  const record_name name{.dvi = dvi.position, .dag = str(dvi.dag_name)};
  const record_name nameless{.dvi = dvi.position};
  check_vproc_id(dvi, name, sink);
  check_reserved(dvi.reserved, dvi.offset + offsetof(morvane_dvi_desc, reserved), name, sink);
  check_dag_name({dvi.dag_name, dag_name_field, nameless, dvi.offset}, sink);
}

void check_port(const morvane_view_port& port, const record_name& name, const finding_sink& sink) {
  check_flags(port, name, sink);
  const std::size_t reserved = port.offset + offsetof(morvane_port_desc, reserved);
  check_reserved(port.reserved[0], reserved, name, sink);
  check_reserved(port.reserved[1], reserved + 1, name, sink);
  check_name({port.port_name, port_name_field, name, port.offset}, sink);
  const placed_text layer_name{port.layer_name, layer_name_field, name, port.offset};
  check_end(layer_name, sink);
  check_characters(layer_name, sink);
}

void check_variable(const morvane_view_var& variable, const record_name& name,
                    const finding_sink& sink) {
  check_name({variable.var, var_field, name, variable.offset}, sink);
}

void check_smb(const morvane_view_smb_block& smb, const record_name& name,
               const finding_sink& sink) {
  check_name({smb.smb_name, smb_name_field, name, smb.offset}, sink);
}

}  // namespace morvane::cli
