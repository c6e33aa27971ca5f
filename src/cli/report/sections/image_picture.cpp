#include <algorithm>
#include <optional>
#include <span>

#include "cli/package/package_walk.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"

namespace morvane::cli {

namespace {

/// An image in the memory plan.
struct planned_image {
  morvane_view_dvi dvi{};
  std::optional<std::uint32_t> partner{};  // a DVI whose image shares addresses with it
};

struct image_plan {
  std::vector<planned_image> images{};  // by address
  std::vector<overlap> overlaps{};
  folded_axis axis{};
};

bool is_biggest(const page_content& content, const morvane_view_dvi& dvi) {
  return dvi.dvi_img_size != 0 && dvi.dvi_img_size == content.totals.biggest.dvi_img_size;
}

/// The class of an image's bar.
std::string_view kind_of_bar(const page_content& content, const planned_image& image) {
  return image.partner ? "shared" : is_biggest(content, image.dvi) ? "biggest" : "image";
}

bool is_dagbin_inside(const morvane_view_dvi& dvi) {
  return is_inside(dvi.dvi_dag_vaddr, image_range(dvi));
}

image_plan plan_of(const morvane_view& view) {
  image_plan plan;
  std::vector<used_range> images;
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    plan.images.push_back({.dvi = dvi});
    images.push_back(image_range(dvi));
  });
  plan.overlaps = find_overlaps(images);
  for (const auto& [one, other] : plan.overlaps) {
    plan.images[one.owner].partner = other.owner;
    plan.images[other.owner].partner = one.owner;
  }
  for (const planned_image& image : plan.images) {
    const std::uint64_t address = image.dvi.dvi_dag_vaddr;
    if (!is_dagbin_inside(image.dvi)) {
      images.push_back({.begin = address, .end = address + 1});
    }
  }
  plan.axis = fold_axis(std::move(images));
  std::ranges::stable_sort(plan.images, {},
                           [](const planned_image& image) { return image.dvi.dvi_img_vaddr; });
  return plan;
}

void write_axis_image(const image_plan& plan, const morvane_view_dvi& dvi, std::string_view kind,
                      page_output& out) {
  const used_range range = image_range(dvi);
  write(out, titled_bar(kind, bar_of(plan.axis, range), 6, 28, "DVI ", dvi.position, ", ",
                        rounded_size(dvi.dvi_img_size), " at ", hexadecimal(range.begin)));
}

/// Writes the axis with all images, the gaps and what is shared.
void write_axis(const page_content& content, const image_plan& plan, page_output& out) {
  const auto& stretches = plan.axis.stretches;
  write(out, "<svg class=\"axis", plan.images.size() <= max_unscrolled ? " few" : "",
        "\" role=\"img\" aria-labelledby=\"plan-title plan-desc\">"
        "<title id=\"plan-title\">All images by address</title><desc id=\"plan-desc\">",
        counted(plan.images.size(), "image"), " from ", hexadecimal(stretches.front().begin),
        " to ", hexadecimal(stretches.back().end - 1), "; the list below names each.</desc>");
  for (const axis_stretch& stretch : stretches) {
    if (stretch.is_gap) {
      write(out, titled_bar("gap", {stretch.place, stretch.width}, 0, 40, "folded gap of ",
                            rounded_size(stretch.end - stretch.begin), " from ",
                            hexadecimal(stretch.begin), " on"));
    }
  }
  for (const bool biggest : {false, true}) {  // the biggest on top of the others
    for (const planned_image& image : plan.images) {
      if (image.dvi.dvi_img_size != 0 && is_biggest(content, image.dvi) == biggest) {
        write_axis_image(plan, image.dvi, biggest ? "image biggest" : "image", out);
      }
    }
  }
  for (const overlap& both : plan.overlaps) {
    const used_range shared = shared_part(both);
    write(out, titled_bar("shared", bar_of(plan.axis, shared), 6, 28, "DVI ", both.one.owner,
                          " and DVI ", both.other.owner, " share ",
                          rounded_size(shared.end - shared.begin)));
  }
  write(out, "</svg>\n<div class=\"ends\"><span>", hexadecimal(stretches.front().begin),
        "</span><span>", hexadecimal(stretches.back().end - 1), "</span></div>\n");
}

void write_image_bar(const page_content& content, const image_plan& plan,
                     const planned_image& image, page_output& out) {
  const used_range range = image_range(image.dvi);
  write(out, "<svg class=\"bar\" role=\"img\"><title>Place of the image of DVI ",
        image.dvi.position, "</title>");
  if (range.begin < range.end) {
    write(out, titled_bar(kind_of_bar(content, image), bar_of(plan.axis, range), 5, 9,
                          rounded_size(image.dvi.dvi_img_size), " at ", hexadecimal(range.begin)));
  }
  const std::uint64_t place = place_of(plan.axis, image.dvi.dvi_dag_vaddr);
  write(out,
        titled_bar("dagbin", {std::min(place, whole_axis - 40), 40}, 0, 5, "DAG binary at ",
                   hexadecimal(image.dvi.dvi_dag_vaddr)),
        "</svg>");
}

void write_image_row(const page_content& content, const image_plan& plan,
                     const planned_image& image, page_output& out) {
  const morvane_view_dvi& dvi = image.dvi;
  const used_range range = image_range(dvi);
  write(out, "<li><div>", pictured_dvi(content.changes, dvi),
        is_biggest(content, dvi) ? " <b class=\"mark\">biggest</b>" : "", " <span class=\"mono\">",
        hexadecimal(range.begin));
  if (range.begin < range.end) {
    write(out, " to ", hexadecimal(range.end - 1), "</span> <span>", byte_size(dvi.dvi_img_size));
  } else {
    write(out, "</span> <span>no image");
  }
  write(out, "</span> <span class=\"dim\">DAG binary at ", hexadecimal(dvi.dvi_dag_vaddr),
        is_dagbin_inside(dvi) ? "" : ", <b class=\"bad\">outside the image</b>", "</span>");
  if (image.partner) {
    write(out, " <b class=\"bad\">shares addresses with ", dvi_link(*image.partner), "</b>");
  }
  write(out, "</div>");
  write_image_bar(content, plan, image, out);
  write(out, "</li>\n");
}

/// Writes the images in the order of their addresses, and the folded gaps between them.
void write_image_rows(const page_content& content, const image_plan& plan, page_output& out) {
  auto stretch = plan.axis.stretches.begin();
  const auto shown = std::min<std::size_t>(plan.images.size(), max_pictured);
  for (const planned_image& image : std::span(plan.images).first(shown)) {
    for (; stretch != plan.axis.stretches.end() && stretch->begin < image.dvi.dvi_img_vaddr;
         ++stretch) {
      if (stretch->is_gap) {
        write(out, "<li class=\"fold\">folded gap of ", byte_size(stretch->end - stretch->begin),
              " from <span class=\"mono\">", hexadecimal(stretch->begin), "</span> on</li>\n");
      }
    }
    write_image_row(content, plan, image, out);
  }
}

void write_overlap_sentence(const image_plan& plan, page_output& out) {
  if (plan.overlaps.empty()) {
    write(out, " No two images share addresses.");
    return;
  }
  const auto sharing = std::ranges::count_if(
      plan.images, [](const planned_image& image) { return image.partner.has_value(); });
  write(out, " <b class=\"bad\">", counted(static_cast<std::uint64_t>(sharing), "image"),
        " share addresses</b> with another; that is marked in red.");
}

}  // namespace

void write_images(const page_content& content, page_output& out) {
  const image_plan plan = plan_of(content.package.view);
  write(out, section_begin("memory", "Memory plan"));
  if (plan.axis.stretches.empty()) {
    write(out, "<p>There is no image to show.</p>\n</section>\n");
    return;
  }
  write(
      out,
      "<p>Images by <code>dvi_img_vaddr</code>, to scale, with long gaps folded. "
      "<span class=\"key biggest\"></span> is the biggest, <span class=\"key dagbin\"></span> the "
      "address of the DAG binary.");
  write_overlap_sentence(plan, out);
  write(out, "</p>\n");
  write_axis(content, plan, out);
  write_bars(content.package.view, "Images by address", out,
             [&] { write_image_rows(content, plan, out); });
  write(out, "</section>\n");
}

}  // namespace morvane::cli
