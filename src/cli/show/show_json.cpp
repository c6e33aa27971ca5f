#include "cli/findings/damage.h"
#include "cli/output/json_writer.h"
#include "cli/package/digest.h"
#include "cli/package/named_dvis.h"
#include "cli/package/package_walk.h"
#include "cli/package/record_fields.h"
#include "cli/show/show_formats.h"

namespace morvane::cli {

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

template <class Fields, class Record>
void write_fields(json_writer& json, const Fields& fields, const Record& record) {
  for (const record_field<Record>& field : fields) {
    std::visit([&](auto value) { write_member(json, field.name, value); }, field.value(record));
  }
}

void write_header(json_writer& json, const opened_package& package) {
  if (!has_header(package)) {
    return write_member(json, "pkg_header", json_null{});
  }
  begin_object(json, "pkg_header");
  write_member(json, "offset", 0);
  write_fields(json, header_fields, package.view);
  end_object(json);
}

/// A package that is damaged before its vproc section does not tell.
void write_vproc_presence(json_writer& json, const opened_package& package) {
  const bool is_known = package.damage.status == MORVANE_VIEW_OK || package.view.vproc_table != 0;
  if (is_known) {
    write_member(json, "has_vproc", package.view.vproc_table != 0);
  } else {
    write_member(json, "has_vproc", json_null{});
  }
}

/// Writes the records of a form that a DVI has.
template <class Record>
void write_records(json_writer& json, std::string_view member, const morvane_view& view,
                   const morvane_view_dvi& dvi, const record_form<Record>& form) {
  begin_array(json, member);
  for_each_record(view, dvi, form, [&](const Record& record) {
    begin_object(json);
    write_member(json, "offset", record.offset);
    write_fields(json, form.fields, record);
    end_object(json);
  });
  end_array(json);
}

void write_image(json_writer& json, const opened_package& package, const morvane_view_dvi& dvi,
                 bool with_digests) {
  const auto image = image_of(package.view, dvi);
  begin_object(json, "image");
  write_member(json, "offset", image.data() - package.view.bytes);
  write_member(json, "size", image.size());
  if (with_digests) {
    write_member(json, "xxh3_128", xxh3_128(package.bytes, image));
  }
  end_object(json);
}

void write_vproc(json_writer& json, const morvane_view& view, const morvane_view_dvi& dvi) {
  if (dvi.vproc_offset == 0) {
    return write_member(json, "vproc", json_null{});
  }
  begin_object(json, "vproc");
  write_member(json, "offset", dvi.vproc_offset);
  write_fields(json, vproc_fields, dvi);
  write_records(json, "variables", view, dvi, variable_form);
  write_records(json, "smbs", view, dvi, smb_form);
  end_object(json);
}

void write_dvi(json_writer& json, const opened_package& package, const morvane_view_dvi& dvi,
               bool with_digests) {
  begin_object(json);
  write_member(json, "offset", dvi.offset);
  write_fields(json, dvi_fields, dvi);
  write_records(json, "inputs", package.view, dvi, input_form);
  write_records(json, "outputs", package.view, dvi, output_form);
  write_image(json, package, dvi, with_digests);
  write_vproc(json, package.view, dvi);
  end_object(json);
}

}  // namespace

void show_json(const opened_package& package, const show_options& options, console& streams) {
  json_writer json{.streams = streams};
  begin_object(json);
  write_member(json, "file", package.path);
  write_member(json, "size", package.view.size);
  write_damage(json, package.damage);
  write_header(json, package);
  write_vproc_presence(json, package);
  begin_array(json, "dvis");
  for_each_named_dvi(package.view, options.dag_names, [&](const morvane_view_dvi& dvi) {
    write_dvi(json, package, dvi, options.digest);
    show_progress(streams.progress, release_dvi(package, dvi));
  });
  end_array(json);
  end_object(json);
  end_document(json);
}

}  // namespace morvane::cli
