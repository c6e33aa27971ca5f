#include <algorithm>
#include <span>
#include <utility>
#include <variant>
#include <vector>

#include "cli/package/package_walk.h"
#include "cli/package/record_fields.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"

namespace morvane::cli {

namespace {

/// DVIs that are folded together.
constexpr std::uint32_t group_size = 50;

/// Whether DVIs are folded together.
bool has_groups(const morvane_view& view) {
  return view.sound_dvis > 2 * group_size;
}

std::string address(std::uint64_t number) {
  return joined("<span class=\"mono\">", hexadecimal(number), "</span>");
}

/// The value of a field of a DVI: a text, an address, a size, or a plain number.
std::string shown_value(std::string_view name, const field_value& value) {
  if (const auto* const text = std::get_if<std::string_view>(&value)) {
    return isolated(*text);
  }
  const auto number = static_cast<std::uint64_t>(std::get<std::int64_t>(value));
  return name.ends_with("_vaddr")  ? address(number)
         : name.ends_with("_size") ? byte_size(number)
                                   : grouped(number);
}

using named_text = std::pair<std::string_view, std::string>;

/// The fields of a DVI, and where it is in the file.
std::vector<named_text> fields_of(const morvane_view& view, const morvane_view_dvi& dvi) {
  std::vector<named_text> fields;
  const auto add_values = [&](const auto& all) {
    for (const dvi_field& field : all) {
      fields.emplace_back(field.name, shown_value(field.name, field.value(dvi)));
    }
  };
  add_values(dvi_fields);
  const auto image = static_cast<std::uint64_t>(image_of(view, dvi).data() - view.bytes);
  fields.emplace_back("block in the file", address(dvi.block));
  fields.emplace_back("image in the file", address(image));
  if (dvi.vproc_offset != 0) {
    add_values(vproc_fields);
    fields.emplace_back("vproc block in the file", address(dvi.vproc_block));
  }
  return fields;
}

/// Writes the fields in a grid, or in one paragraph: a browser needs long for many grids.
void write_fields(const morvane_view& view, const morvane_view_dvi& dvi, page_output& out) {
  const std::vector<named_text> fields = fields_of(view, dvi);
  if (has_groups(view)) {
    write(out, "<p>",
          listed(fields, fields.size(),
                 [](const named_text& field) { return joined(field.first, " ", field.second); }),
          "</p>\n");
    return;
  }
  write(out, "<dl class=\"fields\">\n");
  for (const auto& [name, value] : fields) {
    write(out, fact(name, value));
  }
  write(out, "</dl>\n");
}

void write_dvi_changes(const package_changes* changes, const morvane_view_dvi& dvi,
                       page_output& out) {
  if (changes == nullptr || changes->dvis[dvi.position].all == 0) {
    return;
  }
  const dvi_changes& range = changes->dvis[dvi.position];
  write(out, "<h4>Changes</h4>\n<ul class=\"findings\">\n");
  const auto kept = std::span(changes->kept).subspan(range.first, range.count);
  write_differences(kept, range.all, bytes_with_ports(max_dvi_differences_bytes, port_count(dvi)),
                    out);
  write(out, "</ul>\n");
}

/// Writes the table of the records of a form that a DVI has, its first column their names, and how
/// many of them have no room in it.
template <class Record, class Function>
void write_records(const page_content& content, const morvane_view_dvi& dvi, page_output& out,
                   record_marks& marks, const record_form<Record>& form, std::uint64_t count,
                   const std::string& head, Function cells_of) {
  if (count == 0) {
    return;
  }
  write(out, head);
  bounded_list rows{out, bytes_with_ports(max_records_bytes, port_count(dvi))};
  for_each_record(content.package.view, dvi, form, [&](const Record& record) {
    const std::string_view name = str(record.*form.name);
    write_entry(rows, "<tr><th scope=\"row\">", isolated(name),
                label_of(next_mark(marks, form.kind, name)), "</th><td", cells_of(record),
                "</td></tr>\n");
  });
  write(out, table_end);
  if (const std::uint64_t more = count - rows.shown; more != 0) {
    write(out, "<p class=\"dim\">", grouped(more), " more", more == 1 ? " is" : " are",
          " left out here; <code>morvane show --json</code> lists all.</p>\n");
  }
}

void write_vproc_tables(const page_content& content, const morvane_view_dvi& dvi, page_output& out,
                        record_marks& marks) {
  write_records(content, dvi, out, marks, variable_form, dvi.variable_num,
                joined("<h4>", counted(dvi.variable_num, "variable"), "</h4>\n",
                       table_begin("variables", {"Name", "Bit offset", "Bits"})),
                [](const morvane_view_var& one) {
                  return joined(">", grouped(one.boffset), "</td><td>", grouped(one.bsize));
                });
  write_records(content, dvi, out, marks, smb_form, dvi.smb_num,
                joined("<h4>", counted(dvi.smb_num, "SMB block"), "</h4>\n",
                       table_begin("smbs", {"Name", "Byte offset"})),
                [](const morvane_view_smb_block& one) {
                  return joined(" class=\"mono\">", hexadecimal(one.vbase_byte_offset));
                });
}

void write_dvi(const page_content& content, const morvane_view_dvi& dvi, page_output& out) {
  constexpr std::uint32_t max_open = 3;
  const morvane_view& view = content.package.view;
  write(out, "<details class=\"dvi\" id=\"d", dvi.position, "\"",
        view.sound_dvis <= max_open ? " open" : "", "><summary><h3>DVI ", dvi.position, ": ",
        isolated(str(dvi.dag_name)), label_of(mark_of_dvi(content.changes, dvi.position)),
        "</h3> <span class=\"dim\">", counted(dvi.input_num, "input"), ", ",
        counted(dvi.output_num, "output"), ", image of ", rounded_size(dvi.dvi_img_size),
        "</span></summary>\n");
  record_marks marks = marks_of(content.changes, dvi.position);
  write_dvi_changes(content.changes, dvi, out);
  write_fields(view, dvi, out);
  write_port_table(content, dvi, marks, out);
  write_vproc_tables(content, dvi, out, marks);
  write(out, "</details>\n");
}

}  // namespace

void write_dvis(const page_content& content, page_output& out) {
  const morvane_view& view = content.package.view;
  const bool is_grouped = has_groups(view);
  write(out, section_begin("dvis", "DVIs"));
  if (view.sound_dvis == 0) {
    write(out, "<p>There is no DVI to show.</p>\n");
  }
  progress_line& progress = out.streams.progress;
  progress = begin_progress(content.package.path, view.size, out.streams.quiet);
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    const std::uint32_t next = dvi.position + 1;
    if (is_grouped && dvi.position % group_size == 0) {
      write(out, "<details class=\"group\"><summary>DVIs ", dvi.position, " to ",
            std::min(dvi.position + group_size, view.sound_dvis) - 1, "</summary>\n");
    }
    write_dvi(content, dvi, out);
    write(out,
          is_grouped && (next % group_size == 0 || next == view.sound_dvis) ? "</details>\n" : "");
    release_dvi(content.package, dvi);
    show_progress(progress, dvi.block);
  });
  hide_progress(progress);
  write(out, "</section>\n");
}

}  // namespace morvane::cli
