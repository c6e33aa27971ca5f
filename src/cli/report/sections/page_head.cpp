#include "cli/output/printable_text.h"
#include "cli/package/package_walk.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"
#include "format/build_constants.h"

namespace morvane::cli {

namespace {

void write_verdict(const page_content& content, page_output& out) {
  const finding_counts& counts = content.checked.counts;
  const std::string_view verdict = counts.errors != 0     ? "unsound\">not sound"
                                   : counts.warnings != 0 ? "doubtful\">sound, with warnings"
                                                          : "sound\">sound";
  write(out, "<p><b class=\"verdict ", verdict, "</b> ", counted(counts.errors, "error"), ", ",
        counted(counts.warnings, "warning"), ", ", counted(counts.notes, "note"));
  if (content.changes != nullptr) {
    write(out, "; <a href=\"#changes\">", counted(content.changes->all, "difference"), "</a> from ",
          isolated(content.changes->old_name));
  }
  write(out, "</p>\n");
}

void write_facts(const page_content& content, page_output& out) {
  const morvane_view& view = content.package.view;
  write(out, "<dl class=\"facts\">\n", fact("Size", byte_size(view.size)));
  if (has_header(content.package)) {
    write(out, fact("Tool", version_text(view.version, view.HASH)),
          fact("DVIs", grouped(view.dvi_num)));
  }
  const bool is_cut = is_damaged(content.package);
  const std::string_view more = is_cut ? " and unknown" : "";
  const std::string_view other = is_cut ? "unknown" : "no";
  write(out, fact("Ports", joined(grouped(content.totals.ports), more)),
        fact("Variables", joined(grouped(content.totals.variables), more)),
        fact("SMB blocks", joined(grouped(content.totals.smbs), more)),
        fact("Images", joined(byte_size(content.totals.image_bytes), more)),
        fact("vproc records", view.vproc_table != 0 ? "yes" : other), "</dl>\n");
}

/// What a stranger asks first.
void write_short_answers(const page_content& content, page_output& out) {
  const morvane_view_dvi& biggest = content.totals.biggest;
  if (is_damaged(content.package)) {
    write(out,
          "<p class=\"bad\">The package is damaged. This page shows what comes before the "
          "damage: ",
          content.package.view.sound_dvis, " of ", count_of(content.package.view.dvi_num, "DVI"),
          ".</p>\n");
  }
  if (biggest.dvi_img_size != 0) {
    write(out, "<p>The biggest image ", is_damaged(content.package) ? "known " : "",
          "is that of <b>", dvi_link(biggest.position), "</b> ", isolated(str(biggest.dag_name)),
          ": ", byte_size(biggest.dvi_img_size), " at ", hexadecimal(biggest.dvi_img_vaddr),
          ".</p>\n");
  }
}

void write_navigation(const page_content& content, page_output& out) {
  write(out, "<nav aria-label=\"Sections\"><ul>");
  if (content.changes != nullptr) {
    write(out, "<li><a href=\"#changes\">Changes</a></li>");
  }
  write(out,
        "<li><a href=\"#network\">Network</a></li><li><a href=\"#memory\">Memory plan</a></li>"
        "<li><a href=\"#ports\">Bytes of the ports</a></li><li><a href=\"#file\">File</a></li>"
        "<li><a href=\"#dvis\">DVIs</a></li></ul></nav>\n");
}

/// Writes the findings of one severity, notes folded: they are good to know, no more.
void write_severity(const std::vector<finding>& found, std::uint64_t all, std::string_view thing,
                    page_output& out) {
  if (all == 0) {
    return;
  }
  write(out, "<details", thing != "note" ? " open" : "", "><summary>", counted(all, thing),
        "</summary>\n<ul class=\"findings\">\n");
  bounded_list list{out, max_findings_bytes};
  for (const finding& one : found) {
    const std::string_view level = name_of(level_of(one));
    write_entry(list, "<li><b class=\"", level, "\">", level, "</b> <span class=\"mono\">",
                hexadecimal(one.place.offset), "</span> ", isolated(one.text), " <code>",
                one.kind->code, "</code></li>\n");
  }
  write(out, more_items(all, list, "morvane check --notes"), "</ul>\n</details>\n");
}

}  // namespace

void write_page_head(const page_content& content, page_output& out) {
  write(out, "<header>\n<p class=\"dim\">Package</p>\n<h1>",
        isolated(file_name(content.package.path)), "</h1>\n");
  write_verdict(content, out);
  write(out, "</header>\n");
}

void write_overview(const page_content& content, page_output& out) {
  write_facts(content, out);
  write_short_answers(content, out);
  write_navigation(content, out);
}

void write_findings(const page_content& content, page_output& out) {
  const checked_package& checked = content.checked;
  const finding_counts& counts = checked.counts;
  if (counts.errors + counts.warnings + counts.notes == 0) {
    return;
  }
  write(out, section_begin("findings", "Findings"));
  write_severity(checked.errors, counts.errors, "error", out);
  write_severity(checked.warnings, counts.warnings, "warning", out);
  write_severity(checked.notes, counts.notes, "note", out);
  write(out, "</section>\n");
}

void write_changes(const page_content& content, page_output& out) {
  if (content.changes == nullptr) {
    return;
  }
  const package_changes& changes = *content.changes;
  constexpr std::uint64_t max_unfolded = 20;
  write(out, section_begin("changes", joined("Changes since ", isolated(changes.old_name))));
  if (changes.is_old_damaged) {
    write(out,
          "<p class=\"bad\">The older package is damaged. What comes after its damage counts as "
          "missing there, and is new here.</p>\n");
  }
  if (changes.all == 0) {
    write(out, "<p>Every byte is the same.</p>\n</section>\n");
    return;
  }
  write(out, "<details", changes.all <= max_unfolded ? " open" : "", "><summary>",
        counted(changes.all, "difference"), "</summary>\n<ul class=\"findings\">\n");
  write_differences(changes.kept, changes.all, max_differences_bytes, out);
  write(out, "</ul>\n</details>\n</section>\n");
}

}  // namespace morvane::cli
