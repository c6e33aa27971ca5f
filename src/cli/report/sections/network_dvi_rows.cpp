#include <algorithm>

#include "cli/output/printable_text.h"
#include "cli/package/package_walk.h"
#include "cli/report/sections/page_parts.h"
#include "cli/report/sections/sections.h"
#include "cli/report/sections/wiring.h"

namespace morvane::cli {

namespace {

void sort_without_repetition(std::vector<std::uint32_t>& numbers) {
  std::ranges::sort(numbers);
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

/// The wire from a DVI to all DVIs of the picture that it feeds; without an end when there is none.
wire wire_from(const network_flow& flow, std::uint32_t dvi, std::uint32_t dvis) {
  wire one{.begin = dvi};
  for (const connection& found : connections_from_dvi(flow, dvi)) {
    if (found.input.dvi < dvis) {
      one.ends.push_back({found.input.dvi, found.mismatch != 0});
    }
  }
  std::ranges::sort(one.ends, {},
                    [](const wire_end& end) { return std::tuple(end.row, !end.differs); });
  const auto repeated =
      std::unique(one.ends.begin(), one.ends.end(),
                  [](const wire_end& a, const wire_end& b) { return a.row == b.row; });
  one.ends.erase(repeated, one.ends.end());
  return one;
}

std::vector<wire> wires_of(const network_flow& flow, std::uint32_t dvis) {
  std::vector<wire> wires;
  for (std::uint32_t dvi = 0; dvi < dvis; ++dvi) {
    wire one = wire_from(flow, dvi, dvis);
    if (!one.ends.empty()) {
      wires.push_back(std::move(one));
    }
  }
  return wires;
}

/// How a DVI's inputs and outputs are connected.
struct dvi_flow {
  std::uint32_t outer_inputs = 0;
  std::uint32_t outer_outputs = 0;
  std::vector<std::uint32_t> sources{};  // DVIs, in order
  bool differs = false;
  bool is_lost = false;  // an input lost its producer
};

dvi_flow dvi_flow_of(const network_flow& flow, const morvane_view_dvi& dvi) {
  dvi_flow found;
  for (std::uint32_t i = 0; i < dvi.input_num; ++i) {
    const connection* const source = connection_to(flow, {dvi.position, i});
    found.outer_inputs += source == nullptr ? 1 : 0;
    found.is_lost =
        found.is_lost || std::ranges::binary_search(flow.lost, port_place{dvi.position, i});
    if (source != nullptr) {
      found.sources.push_back(source->output.dvi);
      found.differs = found.differs || source->mismatch != 0;
    }
  }
  for (std::uint32_t i = 0; i < dvi.output_num; ++i) {
    found.outer_outputs += connections_from(flow, {dvi.position, i}).empty() ? 1 : 0;
  }
  sort_without_repetition(found.sources);
  return found;
}

/// The numbers of some DVIs, each a link; of many only the first.
std::string numbers(const std::vector<std::uint32_t>& dvis) {
  return listed(dvis, max_links,
                [](std::uint32_t dvi) { return joined("<a href=\"#d", dvi, "\">", dvi, "</a>"); });
}

void write_inputs(page_output& out, const dvi_flow& flow) {
  if (!flow.sources.empty()) {
    write(out, " <span>from ", numbers(flow.sources), flow.outer_inputs != 0 ? " and outside" : "",
          "</span>");
  } else if (flow.outer_inputs != 0) {
    write(out, " <span>from outside</span>");
  }
  write(out, flow.differs ? " <b class=\"bad\">differs</b>" : "",
        flow.is_lost ? " <b class=\"bad\">lost a producer</b>" : "");
}

/// Writes what a DVI hands on: the DVIs that get it, and name, dims and format of the first output.
void write_outputs(const page_content& content, page_output& out, const morvane_view_dvi& dvi,
                   const dvi_flow& flow) {
  std::vector<std::uint32_t> fed;
  for (const connection& one : connections_from_dvi(content.flow, dvi.position)) {
    fed.push_back(one.input.dvi);
  }
  sort_without_repetition(fed);
  if (dvi.output_num == 0) {
    return;
  }
  write(out, " <span>to ", numbers(fed), flow.outer_outputs == 0 || fed.empty() ? "" : " and ",
        flow.outer_outputs == 0 ? "" : destination_of(content.flow), "</span>");
  morvane_view_port port{};
  if (morvane_view_output(&content.package.view, &dvi, 0, &port) == MORVANE_VIEW_OK) {
    constexpr std::size_t max_characters = 24;
    write(out, " <span class=\"dim\">", pictured_name(str(port.port_name), max_characters), " ",
          port_dims(port), " format ", port.dram_format);
    if (dvi.output_num > 1) {
      write(out, " and ", counted(dvi.output_num - 1U, "output"), " more");
    }
    write(out, "</span>");
  }
}

void write_row(const page_content& content, page_output& out, const wiring& plan,
               const morvane_view_dvi& dvi) {
  constexpr std::size_t max_characters = 28;
  const dvi_flow flow = dvi_flow_of(content.flow, dvi);
  write(out, "<li class=\"row\">");
  append_wires(out.pending, plan, dvi.position, {flow.outer_inputs != 0, flow.outer_outputs != 0});
  write(out, "<div>", pictured_dvi(content.changes, dvi, max_characters));
  write_inputs(out, flow);
  write_outputs(content, out, dvi, flow);
  write(out, "</div></li>\n");
}

}  // namespace

void write_dvi_rows(const page_content& content, page_output& out) {
  const morvane_view& view = content.package.view;
  const auto dvis = std::min(view.sound_dvis, max_pictured);
  const wiring plan = lay_wires(wires_of(content.flow, dvis), dvis);
  const auto hidden = std::ranges::count(plan.wires, wire::no_track, &wire::track);
  if (hidden != 0) {
    write(out, "<p class=\"dim\">There is no room for the wires of ",
          count_of(static_cast<std::uint64_t>(hidden), "DVI"),
          "; the text beside the rows tells all.</p>\n");
  }
  write(out, scrolling_begin("Network by DVI"), "<ol class=\"net thin ", width_class(plan),
        "\">\n");
  for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    if (dvi.position < dvis) {
      write_row(content, out, plan, dvi);
    }
  });
  write(out, "</ol>\n</div>\n");
}

}  // namespace morvane::cli
