#include "cli/report/sections/dvi_tables.h"

#include <algorithm>
#include <span>
#include <variant>

#include "cli/package/package_walk.h"
#include "cli/package/record_fields.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/port_table.h"

namespace morvane::cli {

namespace {

/// DVIs that are folded together.
constexpr std::uint32_t group_size = 50;

/// Whether DVIs are folded together.
bool has_groups(const morvane_view& view) {
  return view.sound_dvis > 2 * group_size;
}

/// How a field of a DVI is written: an address, a size, or a plain number or text.
struct field_text {
  std::string_view name;
  page_output& out;

  void operator()(std::int64_t number) const {
    const auto value = static_cast<std::uint64_t>(number);
    if (name.ends_with("_vaddr")) {
      write(out, "<span class=\"mono\">", hex{value}, "</span>");
    } else if (name.ends_with("_size")) {
      write(out, byte_size{value});
    } else {
      write(out, grouped{value});
    }
  }
  void operator()(std::string_view text) const { write(out, isolated{text}); }
  void operator()(bool value) const { write(out, value ? "yes" : "no"); }
  void operator()(number_pair numbers) const {
    write(out, grouped{numbers[0]}, ", ", grouped{numbers[1]});
  }
};

/// Calls a function with the name of each field of a DVI, and how to write its value.
template <class Function>
void for_each_field(const morvane_view& view, const morvane_view_dvi& dvi, page_output& out,
                    Function function) {
  const auto write_values = [&](const auto& fields) {
    for (const dvi_field& field : fields) {
      function(field.name, [&] { std::visit(field_text{field.name, out}, field.value(dvi)); });
    }
  };
  const auto write_offset = [&](std::string_view name, std::uint64_t offset) {
    function(name, [&] { write(out, "<span class=\"mono\">", hex{offset}, "</span>"); });
  };
  write_values(dvi_fields);
  write_offset("block in the file", dvi.block);
  write_offset("image in the file",
               static_cast<std::uint64_t>(image_of(view, dvi).data() - view.bytes));
  if (dvi.vproc_offset != 0) {
    write_values(vproc_fields);
    write_offset("vproc block in the file", dvi.vproc_block);
  }
}

void write_field_grid(const morvane_view& view, const morvane_view_dvi& dvi, page_output& out) {
  write(out, "<dl class=\"fields\">\n");
  for_each_field(view, dvi, out, [&](std::string_view name, const auto& write_value) {
    write(out, "<div><dt>", name, "</dt><dd>");
    write_value();
    write(out, "</dd></div>\n");
  });
  write(out, "</dl>\n");
}

/// The fields in one paragraph: a browser needs long for many grids.
void write_field_text(const morvane_view& view, const morvane_view_dvi& dvi, page_output& out) {
  std::string_view separator;
  write(out, "<p>");
  for_each_field(view, dvi, out, [&](std::string_view name, const auto& write_value) {
    write(out, separator, name, " ");
    write_value();
    separator = ", ";
  });
  write(out, "</p>\n");
}

void write_dvi_changes(const package_changes& changes, std::uint32_t position, page_output& out) {
  const dvi_changes& range = changes.dvis[position];
  if (range.all == 0) {
    return;
  }
  write(out, "<h4>Changes</h4>\n<ul class=\"findings\">\n");
  const auto kept = std::span(changes.kept).subspan(range.first, range.count);
  write_differences(kept, range.all, max_dvi_differences_bytes, out);
  write(out, "</ul>\n");
}

/// Ends a table of records, and tells how many rows have no room in it.
void end_table(const bounded_list& rows, std::uint64_t count) {
  write(rows.out, "</tbody></table>\n");
  if (count > rows.shown) {
    const std::uint64_t more = count - rows.shown;
    write(rows.out, "<p class=\"dim\">", grouped{more}, " more", more == 1 ? " is" : " are",
          " left out here; <code>morvane show --json</code> lists all.</p>\n");
  }
}

void write_variables(const morvane_view& view, const morvane_view_dvi& dvi, page_output& out,
                     const record_marks& marks) {
  if (dvi.variable_num == 0) {
    return;
  }
  write(out, "<h4>", counted{dvi.variable_num, "variable"},
        "</h4>\n<table class=\"variables\"><thead><tr><th scope=\"col\">Name</th>"
        "<th scope=\"col\">Bit offset</th><th scope=\"col\">Bits</th></tr></thead>\n<tbody>\n");
  bounded_list rows{out, max_records_bytes};
  occurrence_counter occurrences;
  for_each_variable(view, dvi, [&](const morvane_view_var& one, const record_name& /*record*/) {
    const std::string_view name = str(one.var);
    write_entry(rows, "<tr><th scope=\"row\">", isolated{name},
                next_mark(marks, object_kind::variable, name, occurrences), "</th><td>",
                grouped{one.boffset}, "</td><td>", grouped{one.bsize}, "</td></tr>\n");
  });
  end_table(rows, dvi.variable_num);
}

void write_smbs(const morvane_view& view, const morvane_view_dvi& dvi, page_output& out,
                const record_marks& marks) {
  if (dvi.smb_num == 0) {
    return;
  }
  write(out, "<h4>", counted{dvi.smb_num, "SMB block"},
        "</h4>\n<table class=\"smbs\"><thead><tr><th scope=\"col\">Name</th>"
        "<th scope=\"col\">Byte offset</th></tr></thead>\n<tbody>\n");
  bounded_list rows{out, max_records_bytes};
  occurrence_counter occurrences;
  for_each_smb(view, dvi, [&](const morvane_view_smb_block& one, const record_name& /*record*/) {
    const std::string_view name = str(one.smb_name);
    write_entry(rows, "<tr><th scope=\"row\">", isolated{name},
                next_mark(marks, object_kind::smb, name, occurrences), "</th><td class=\"mono\">",
                hex{one.vbase_byte_offset}, "</td></tr>\n");
  });
  end_table(rows, dvi.smb_num);
}

void write_dvi(const page_content& content, const morvane_view_dvi& dvi, page_output& out) {
  constexpr std::uint32_t max_open = 3;
  const morvane_view& view = content.package.view;
  write(out, "<details class=\"dvi\" id=\"d", dvi.position, "\"",
        view.sound_dvis <= max_open ? " open" : "", "><summary><h3>DVI ", dvi.position, ": ",
        isolated{str(dvi.dag_name)}, mark_of_dvi(content.changes, dvi.position),
        "</h3> <span class=\"dim\">", counted{dvi.input_num, "input"}, ", ",
        counted{dvi.output_num, "output"}, ", image of ", rounded_size{dvi.dvi_img_size},
        "</span></summary>\n");
  record_marks marks;
  if (content.changes != nullptr) {
    write_dvi_changes(*content.changes, dvi.position, out);
    marks = marks_of(*content.changes, dvi.position);
  }
  if (has_groups(view)) {
    write_field_text(view, dvi, out);
  } else {
    write_field_grid(view, dvi, out);
  }
  write_port_table(content, dvi, marks, out);
  write_variables(view, dvi, out, marks);
  write_smbs(view, dvi, out, marks);
  write(out, "</details>\n");
}

void begin_group(std::uint32_t first, std::uint32_t dvis, page_output& out) {
  write(out, "<details class=\"group\"><summary>DVIs ", first, " to ",
        std::min(first + group_size, dvis) - 1, "</summary>\n");
}

}  // namespace

void write_dvis(const page_content& content, page_output& out) {
  const morvane_view& view = content.package.view;
  const bool is_grouped = has_groups(view);
  write(out,
        "<section id=\"dvis\" aria-labelledby=\"dvis-head\">\n"
        "<h2 id=\"dvis-head\">DVIs</h2>\n");
  if (view.sound_dvis == 0) {
    write(out, "<p>There is no DVI to show.</p>\n");
  }
  progress_line& progress = out.streams.progress;
  progress = begin_progress(content.package.path, view.size, out.streams.quiet);
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    const bool is_first = dvi.position % group_size == 0;
    const bool is_last =
        dvi.position % group_size == group_size - 1 || dvi.position + 1 == view.sound_dvis;
    if (is_grouped && is_first) {
      begin_group(dvi.position, view.sound_dvis, out);
    }
    write_dvi(content, dvi, out);
    write(out, is_grouped && is_last ? "</details>\n" : "");
    release_dvi(content.package, dvi);
    show_progress(progress, dvi.block);
  });
  hide_progress(progress);
  write(out, "</section>\n");
}

}  // namespace morvane::cli
