#include "companion/show_json.h"

#include "companion/damage.h"
#include "companion/json_writer.h"
#include "companion/package_walk.h"

namespace morvane::companion {

namespace {

void write_damage(json_writer& json, const morvane_view_damage& damage) {
  if (damage.status == MORVANE_VIEW_OK) {
    return write_member(json, "damage", json_null{});
  }
  begin_object(json, "damage");
  write_member(json, "code", kind_of_damage(damage.status).code);
  write_member(json, "offset", damage.offset);
  write_member(json, "claimed", damage.claimed);
  write_member(json, "present", damage.present);
  end_object(json);
}

void write_header(json_writer& json, const shown_package& shown) {
  if (!has_header(shown)) {
    return write_member(json, "pkg_header", json_null{});
  }
  begin_object(json, "pkg_header");
  write_member(json, "offset", 0);
  write_member(json, "version", shown.view.version);
  write_member(json, "HASH", shown.view.HASH);
  write_member(json, "dvi_num", shown.view.dvi_num);
  end_object(json);
}

/// A package that is damaged before its vproc section does not tell.
void write_vproc_presence(json_writer& json, const shown_package& shown) {
  const bool is_known = shown.damage.status == MORVANE_VIEW_OK || shown.view.vproc_table != 0;
  if (is_known) {
    write_member(json, "has_vproc", shown.view.vproc_table != 0);
  } else {
    write_member(json, "has_vproc", json_null{});
  }
}

void write_port(json_writer& json, const morvane_view_port& port) {
  begin_object(json);
  write_member(json, "offset", port.offset);
  write_member(json, "P", port.P);
  write_member(json, "D", port.D);
  write_member(json, "H", port.H);
  write_member(json, "W", port.W);
  write_member(json, "pitch", port.pitch);
  write_member(json, "dram_format", port.dram_format);
  write_member(json, "flags", port.flags);
  write_numbers(json, "reserved", port.reserved);
  write_member(json, "drotate_bit_offset", port.drotate_bit_offset);
  write_member(json, "hflip_bit_offset", port.hflip_bit_offset);
  write_member(json, "vflip_bit_offset", port.vflip_bit_offset);
  write_member(json, "dflip_bit_offset", port.dflip_bit_offset);
  write_member(json, "pflip_bit_offset", port.pflip_bit_offset);
  write_member(json, "sign", port.sign);
  write_member(json, "datasize", port.datasize);
  write_member(json, "expoffset", port.expoffset);
  write_member(json, "expbits", port.expbits);
  write_member(json, "port_size", port.port_size);
  write_member(json, "port_byte_offset", port.port_byte_offset);
  write_member(json, "port_name", str(port.port_name));
  write_member(json, "layer_name", str(port.layer_name));
  end_object(json);
}

void write_ports(json_writer& json, const morvane_view& view, const morvane_view_dvi& dvi) {
  begin_array(json, "inputs");
  for_each_input(view, dvi, [&](const morvane_view_port& port, const record_name& /*name*/) {
    write_port(json, port);
  });
  end_array(json);
  begin_array(json, "outputs");
  for_each_output(view, dvi, [&](const morvane_view_port& port, const record_name& /*name*/) {
    write_port(json, port);
  });
  end_array(json);
}

void write_image(json_writer& json, const shown_package& shown, const morvane_view_dvi& dvi) {
  const auto image = image_of(shown, dvi);
  begin_object(json, "image");
  write_member(json, "offset", image.data() - shown.view.bytes);
  write_member(json, "size", image.size());
  if (shown.with_digests) {
    write_member(json, "xxh3_128", digest_of(shown, image));
  }
  end_object(json);
}

void write_vproc(json_writer& json, const morvane_view& view, const morvane_view_dvi& dvi) {
  if (dvi.vproc_offset == 0) {
    return write_member(json, "vproc", json_null{});
  }
  begin_object(json, "vproc");
  write_member(json, "offset", dvi.vproc_offset);
  write_member(json, "variable_num", dvi.variable_num);
  write_member(json, "smb_num", dvi.smb_num);
  write_member(json, "vproc_records_size", dvi.vproc_records_size);
  begin_array(json, "variables");
  for_each_variable(view, dvi, [&](const morvane_view_var& variable, const record_name& /*name*/) {
    begin_object(json);
    write_member(json, "offset", variable.offset);
    write_member(json, "var", str(variable.var));
    write_member(json, "boffset", variable.boffset);
    write_member(json, "bsize", variable.bsize);
    end_object(json);
  });
  end_array(json);
  begin_array(json, "smbs");
  for_each_smb(view, dvi, [&](const morvane_view_smb_block& smb, const record_name& /*name*/) {
    begin_object(json);
    write_member(json, "offset", smb.offset);
    write_member(json, "smb_name", str(smb.smb_name));
    write_member(json, "vbase_byte_offset", smb.vbase_byte_offset);
    end_object(json);
  });
  end_array(json);
  end_object(json);
}

void write_dvi(json_writer& json, const shown_package& shown, const morvane_view_dvi& dvi) {
  begin_object(json);
  write_member(json, "offset", dvi.offset);
  write_member(json, "dvi_id", dvi.dvi_id);
  write_member(json, "vproc_id", dvi.vproc_id);
  write_member(json, "dvi_ppv", dvi.dvi_ppv);
  write_member(json, "reserved", dvi.reserved);
  write_member(json, "dvi_img_vaddr", dvi.dvi_img_vaddr);
  write_member(json, "dvi_img_size", dvi.dvi_img_size);
  write_member(json, "dvi_dag_vaddr", dvi.dvi_dag_vaddr);
  write_member(json, "input_num", dvi.input_num);
  write_member(json, "output_num", dvi.output_num);
  write_member(json, "dvi_pkg_size", dvi.dvi_pkg_size);
  write_member(json, "dag_name", str(dvi.dag_name));
  write_ports(json, shown.view, dvi);
  write_image(json, shown, dvi);
  write_vproc(json, shown.view, dvi);
  end_object(json);
}

}  // namespace

void show_json(const shown_package& shown, console& streams) {
  json_writer json{.streams = streams};
  begin_object(json);
  write_member(json, "file", shown.path);
  write_member(json, "size", shown.view.size);
  write_damage(json, shown.damage);
  write_header(json, shown);
  write_vproc_presence(json, shown);
  begin_array(json, "dvis");
  for_each_dvi(shown.view, [&](const morvane_view_dvi& dvi) {
    write_dvi(json, shown, dvi);
    leave_dvi(shown, dvi, streams);
  });
  end_array(json);
  end_object(json);
  end_document(json);
}

}  // namespace morvane::companion
