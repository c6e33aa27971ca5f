#include <algorithm>

#include "cli/output/printable_text.h"
#include "cli/report/model/file_parts.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"

namespace morvane::cli {

namespace {

/// Parts that are of no DVI, or of the vproc records of all.
constexpr std::uint32_t max_parts_beside_dvis = 8;

/// The id of the row of the table in which an offset is; every part of the bar leads to one.
std::string row_id(std::uint64_t offset) {
  return joined("o", std::string_view(hexadecimal(offset)).substr(2));
}

/// The class of the part of the file that a changed part of a DVI lies in.
std::string_view place_of(object_kind kind) {
  switch (kind) {
    case object_kind::input:
    case object_kind::output:
      return "ports";
    case object_kind::image:
      return "image";
    case object_kind::variable:
    case object_kind::smb:
      return "vproc";
    default:
      return "head";
  }
}

/// Whether one of the DVIs that are joined in a part is new or changed.
change_mark mark_of_joined(const package_changes& changes, const file_part& part) {
  const auto first = changes.dvis.begin() + *part.dvi;
  const auto found = std::find_if(first, first + part.joined_dvis, [](const dvi_changes& one) {
    return one.mark != change_mark::none;
  });
  return found == first + part.joined_dvis ? change_mark::none
         : part.joined_dvis == 1           ? found->mark
                                           : change_mark::changed;
}

/// Whether a part of a DVI is new or changed.
change_mark mark_of(const package_changes* changes, const file_part& part) {
  if (changes != nullptr && part.joined_dvis != 0) {
    return mark_of_joined(*changes, part);
  }
  const change_mark of_dvi = part.dvi ? mark_of_dvi(changes, *part.dvi) : change_mark::none;
  if (of_dvi != change_mark::changed) {
    return of_dvi;
  }
  const dvi_changes& range = changes->dvis[*part.dvi];
  const auto first = changes->kept.begin() + static_cast<std::ptrdiff_t>(range.first);
  const bool is_changed =
      std::any_of(first, first + static_cast<std::ptrdiff_t>(range.count),
                  [&](const difference& one) { return place_of(one.part.kind) == part.kind; });
  return is_changed ? change_mark::changed : change_mark::none;
}

void write_bar(const page_content& content, const std::vector<file_part>& parts, page_output& out) {
  std::vector<std::uint64_t> sizes;
  sizes.reserve(parts.size());
  for (const file_part& part : parts) {
    sizes.push_back(part.size);
  }
  const std::vector<std::uint64_t> widths = visible_widths(sizes);
  write(out, "<svg class=\"file\" role=\"group\" aria-label=\"The parts of the file\">\n");
  std::uint64_t place = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const file_part& part = parts[i];
    const axis_bar bar{place, widths[i]};
    const std::string_view change = word_of(mark_of(content.changes, part));
    write(out, "<a href=\"#", row_id(part.offset), "\">",
          titled_bar(part.kind, bar, 4, 40, part.name, ", ", byte_size(part.size), " at ",
                     hexadecimal(part.offset)),
          change.empty() ? "" : titled_bar("changed", bar, 45, 3, change), "</a>\n");
    place += widths[i];
  }
  write(out, "</svg>\n");
}

void write_table(const page_content& content, const std::vector<file_part>& parts,
                 page_output& out) {
  write(out, "<details", parts.size() <= max_parts ? " open" : "",
        "><summary>Offsets and sizes of ", counted(parts.size(), "part"), "</summary>\n",
        table_begin("parts", {"Part", "Offset", "Size", "Share"}));
  const std::uint64_t size = content.package.bytes.bytes().size();
  for (const file_part& part : parts) {
    write(out, "<tr id=\"", row_id(part.offset), "\"><th scope=\"row\"><i class=\"key ", part.kind,
          "\"></i> ", part.name, label_of(mark_of(content.changes, part)),
          "</th><td class=\"mono\">", hexadecimal(part.offset), "</td><td>", byte_size(part.size),
          "</td><td>", percent(part.size * whole_axis / size), "</td></tr>\n");
  }
  write(out, table_end, "</details>\n");
}

}  // namespace

void write_file(const page_content& content, page_output& out) {
  write(out, section_begin("file", "File"));
  const std::vector<file_part> parts = parts_of(content.package);
  if (parts.empty()) {
    write(out, "<p>The file is empty.</p>\n</section>\n");
    return;
  }
  const bool is_joined = parts.size() > max_parts;
  write(out,
        "<p>To scale, with small parts widened so that they can be seen: "
        "<i class=\"key head\"></i> header and DVI table, <i class=\"key ports\"></i> ports, "
        "<i class=\"key image\"></i> images, <i class=\"key vproc\"></i> vproc records.",
        is_joined ? " A stretch of the bar holds ports and images of a DVI, or of several." : "",
        content.changes == nullptr
            ? ""
            : " <i class=\"key changed\"></i> is below what is new or changed.",
        "</p>\n");
  write_bar(content,
            is_joined ? joined_parts(parts, content.package.view.sound_dvis,
                                     max_parts - max_parts_beside_dvis)
                      : parts,
            out);
  write_table(content, parts, out);
  write(out, "</section>\n");
}

}  // namespace morvane::cli
