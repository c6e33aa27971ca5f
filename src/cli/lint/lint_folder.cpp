#include "cli/lint/lint_folder.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <optional>
#include <string>
#include <unordered_map>

#include "cli/lint/dvi_reading.h"
#include "cli/lint/dvi_rules.h"
#include "cli/lint/folder_rules.h"
#include "cli/lint/header/line_index.h"
#include "cli/lint/header/macro_names.h"
#include "cli/lint/memory_plan.h"
#include "cli/output/printable_text.h"
#include "cli/package/overlaps.h"
#include "cli/package/port_flow.h"

namespace morvane::cli {

namespace {

/// The last output of a name.
struct earlier_output {
  port_flow flow;
  std::uint32_t dvi;
};

/// What was read so far. The maps are by name.
struct folder_run {
  const lint_scope& scope;
  const finding_sink& sink;
  folder_reading files;
  std::unordered_map<std::string, std::uint32_t> dags{};  // the first DVI of each name
  std::unordered_map<std::string, earlier_output> outputs{};
  memory_plan images{};  // with notes
  std::uint64_t package_size = sizeof(pkg_header);
};

/// Compares an input with the output of its name in an earlier DVI.
void follow_input(const folder_run& run, const read_port& input, dvi_reading& reading) {
  const auto output = run.outputs.find(std::string(input.name));
  if (output == run.outputs.end()) {
    return;
  }
  const std::string differing = flow_differences(input.flow, output->second.flow);
  if (!differing.empty()) {
    reading.findings.push_back(
        {.kind = kind_of("port-mismatch"),
         .place = static_cast<std::size_t>(input.name.data() - reading.header.header.data()),
         .text = joined("input ", printable(input.name),
                        " differs from the output of the same name in ",
                        printable(run.files.header(output->second.dvi)), ": ", differing)});
  }
}

/// Compares the inputs with the outputs of earlier DVIs, then takes up the outputs.
void follow_ports(folder_run& run, dvi_reading& reading) {
  for (const read_port& port : reading.ports) {
    if (port.kind == object_kind::output) {
      run.outputs.insert_or_assign(std::string(port.name),
                                   earlier_output{.flow = port.flow, .dvi = reading.position});
    } else {
      follow_input(run, port, reading);
    }
  }
}

void check_repetition(folder_run& run, std::uint32_t position, const header_reading& reading,
                      header_findings& findings) {
  if (reading.dag_name.empty()) {
    return;
  }
  const auto [first, is_new] = run.dags.try_emplace(std::string(reading.dag_name), position);
  if (!is_new) {
    findings.push_back(
        {.kind = kind_of("duplicate-dag-name"),
         .place = static_cast<std::size_t>(reading.dag_name.data() - reading.header.data()),
         .text = joined("the DAG's name ", in_quotes(reading.dag_name), " is that of ",
                        printable(run.files.header(first->second)), " too",
                        run.scope.vproc ? ": nothing can be packed" : ""),
         .level = run.scope.vproc ? severity::error : severity::warning});
  }
}

void report_all(const folder_run& run, std::string_view path, std::string_view header,
                header_findings findings) {
  line_index lines(header);
  std::ranges::stable_sort(findings, {}, &header_finding::place);
  const header_finding* last = nullptr;
  for (const header_finding& found : findings) {
    if (last == nullptr || last->place != found.place || last->kind != found.kind) {
      run.sink({.kind = found.kind,
                .file = path,
                .place = lines.position(found.place),
                .text = found.text,
                .level = found.level});
    }
    last = &found;
  }
}

void report_unreadable(const finding_sink& sink, std::string_view what, std::string_view path,
                       int error, std::string_view effect = "") {
  const bool is_missing = error == ENOENT || error == ELOOP;
  sink(
      {.kind = is_missing && effect.empty() ? kind_of("image-missing") : kind_of("unreadable-file"),
       .file = path,
       .place = whole_file,
       .text = joined(unreadable_text(what, error), effect)});
}

/// With notes: tells whether the image shares addresses with one before it.
void note_overlap(folder_run& run, std::uint32_t position, const header_reading& reading,
                  header_findings& findings) {
  if (!run.scope.notes || reading.dag_name.empty()) {
    return;
  }
  const dvi_desc& dvi = reading.dvi;
  const used_range image = image_range(position, dvi.dvi_img_vaddr, dvi.dvi_img_size);
  const auto partner = run.images.add(image);
  if (partner) {
    findings.push_back(
        {.kind = kind_of("images-overlap"),
         .place = static_cast<std::size_t>(reading.dag_name.data() - reading.header.data()),
         .text = joined("the image, ", range_text(image), ", shares addresses with that of ",
                        printable(run.files.header(*partner)))});
  }
}

void add_package_size(folder_run& run, const header_reading& reading) {
  const dvi_desc& dvi = reading.dvi;
  run.package_size += sizeof(dvi_desc) + dvi.dvi_img_size;
  const auto add = [&](object_kind kind, std::size_t width) {
    run.package_size += width * reading.of(kind).blocks.size();
  };
  add(object_kind::input, sizeof(port_desc));
  add(object_kind::output, sizeof(port_desc));
  if (run.scope.vproc) {
    run.package_size += sizeof(vproc_desc);
    add(object_kind::variable, sizeof(var_desc));
    add(object_kind::smb, sizeof(smb_desc));
  }
}

/// Looks at a DVI together with those before it, and tells what was found.
void check_dvi(folder_run& run, const header_file& header, const file_state& image,
               dvi_reading& reading) {
  if (header.state.error != 0) {
    report_unreadable(run.sink, "file", header.path, header.state.error,
                      ", so the DAG gets no name and no image");
  } else {
    header_findings& findings = reading.findings;
    follow_ports(run, reading);
    check_repetition(run, reading.position, reading.header, findings);
    if (!reading.header.of(object_kind::dag).is_stopped) {
      check_image(reading.header, image, findings);
      check_block(reading.header, run.scope.notes, findings);
    }
    note_overlap(run, reading.position, reading.header, findings);
    report_all(run, header.path, header.text, std::move(findings));
  }
  if (image.error != 0) {
    const std::string path = join_path(run.scope.folder, run.files.dvis[reading.position].name);
    report_unreadable(run.sink, "file", path, image.error);
  }
  add_package_size(run, reading.header);
}

file_state look_at_image(const std::string& path) {
  file_state state;
  open_input(path, state);
  return state;
}

/// Reads a DVI and looks at it. Adds it to the description, unless that is null.
void lint_dvi(folder_run& run, std::uint32_t position, parsed_folder* parsed) {
  const std::string& folder = run.scope.folder;
  const input_entry dvi = run.files.dvis[position];
  const header_file header = load_header(join_path(folder, run.files.header(position)));
  const file_state image = look_at_image(join_path(folder, dvi.name));
  dvi_reading reading = read_dvi(run.scope, header, dvi.index, position, parsed != nullptr);
  check_dvi(run, header, image, reading);
  if (parsed != nullptr) {
    parsed->dvis.push_back(std::move(reading.parsed));
    parsed->before.push_back(image);
    parsed->before.push_back(header.state);
  }
}

void describe_files(parsed_folder& parsed, const std::string& folder, folder_reading files) {
  parsed.inputs.folder = folder;
  for (std::size_t i = 0; i < files.dvis.size(); ++i) {
    parsed.inputs.headers.add({.name = files.header(i), .index = files.dvis[i].index});
  }
  parsed.inputs.dvis = std::move(files.dvis);
}

}  // namespace

int lint_folder(const lint_scope& scope, const finding_sink& sink, const dvi_progress& progress,
                parsed_folder* parsed) {
  if (!open_at(AT_FDCWD, scope.folder, O_RDONLY | O_DIRECTORY).is_open()) {
    return errno;
  }
  const folder_names names = read_names(scope.folder);
  if (names.error != 0) {
    report_unreadable(sink, "folder", scope.folder, names.error);
    return 0;
  }
  folder_run run{.scope = scope, .sink = sink, .files = check_names(scope, names, sink)};
  const std::size_t count = run.files.dvis.size();
  for (std::uint32_t position = 0; position < count; ++position) {
    progress(position, count);
    if (has_header(run.files.headers, position)) {
      lint_dvi(run, position, parsed);
    }
  }
  if (parsed != nullptr) {
    describe_files(*parsed, scope.folder, std::move(run.files));
  }
  if (run.package_size > std::numeric_limits<std::uint32_t>::max()) {
    sink({.kind = kind_of("size-overflow"),
          .file = scope.folder,
          .place = whole_file,
          .text = joined("the package has ", run.package_size,
                         " bytes: its size is printed modulo 2^32")});
  }
  return 0;
}

}  // namespace morvane::cli
