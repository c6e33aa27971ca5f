#include "companion/lint/lint_folder.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <optional>

#include "companion/lint/dvi_reading.h"
#include "companion/lint/dvi_rules.h"
#include "companion/lint/earlier_names.h"
#include "companion/lint/folder_rules.h"
#include "companion/lint/line_index.h"
#include "companion/lint/macro_names.h"
#include "companion/lint/memory_plan.h"
#include "companion/overlaps.h"
#include "companion/port_flow.h"
#include "companion/printable_text.h"
#include "io/file.h"

namespace morvane::companion {

namespace {

/// What was read so far.
struct folder_run {
  const lint_scope& scope;
  const finding_sink& sink;
  folder_reading files;
  earlier_names dag_names{files.dvis.size()};
  earlier_outputs outputs{files.dvis.size()};
  memory_plan images{};  // with notes
  std::uint64_t package_size = sizeof(pkg_header);
};

/// In what an input differs from the last output of its name in an earlier DVI, which is read once
/// more for that.
std::string differences_from_output(const folder_run& run, const read_port& input,
                                    std::uint32_t dvi) {
  dvi_reading earlier;
  read_once_more(run.scope, run.files, dvi, earlier);
  std::string differing;
  for (const read_port& port : earlier.ports) {
    if (port.kind == object_kind::output && port.name == input.name) {
      differing = flow_differences(input.flow, port.flow);
    }
  }
  return differing;
}

/// Compares a port with the outputs of earlier DVIs, or takes it up as an output.
void follow_port(folder_run& run, const read_port& port, dvi_reading& reading) {
  if (port.kind == object_kind::output) {
    const bool is_last = reading.position + 1 == run.files.dvis.size();  // no input follows
    if (!is_last) {
      run.outputs.add(port.name, port.flow, reading.position);
    }
    return;
  }
  const std::optional<std::uint32_t> source = run.outputs.find_other(port.name, port.flow);
  if (!source) {
    return;
  }
  const std::string differing = differences_from_output(run, port, *source);
  if (!differing.empty()) {
    reading.findings.push_back(
        {.kind = kind_of("port-mismatch"),
         .place = static_cast<std::size_t>(port.name.data() - reading.text.data()),
         .text =
             joined("input ", printable(port.name), " differs from the output of the same name in ",
                    printable(run.files.header(*source)), ": ", differing)});
  }
}

bool has_dag_name(const folder_run& run, std::uint32_t dvi, std::string_view name) {
  dvi_reading earlier;
  read_once_more(run.scope, run.files, dvi, earlier);
  return earlier.header.dag_name == name;
}

void judge_repetition(folder_run& run, std::uint32_t position, const header_reading& reading,
                      header_findings& findings) {
  if (reading.dag_name.empty()) {
    return;
  }
  const std::optional<std::uint32_t> earlier = run.dag_names.add(reading.dag_name, position);
  if (earlier && has_dag_name(run, *earlier, reading.dag_name)) {
    findings.push_back(
        {.kind = kind_of("duplicate-dag-name"),
         .place = static_cast<std::size_t>(reading.dag_name.data() - reading.header.data()),
         .text = joined("the DAG's name ", in_quotes(reading.dag_name), " is that of ",
                        printable(run.files.header(*earlier)), " too",
                        run.scope.vproc ? ": nothing can be packed" : ""),
         .level = run.scope.vproc ? severity::error : severity::warning});
  }
}

void tell_all(const folder_run& run, std::string_view path, std::string_view header,
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

void tell_unreadable(const folder_run& run, const std::string& path, int error,
                     std::string_view effect) {
  const bool is_missing = error == ENOENT || error == ELOOP;
  run.sink(
      {.kind = is_missing && effect.empty() ? kind_of("image-missing") : kind_of("unreadable-file"),
       .file = path,
       .place = whole_file,
       // NOLINTNEXTLINE(concurrency-mt-unsafe): one thread
       .text = joined("the file cannot be read: ", std::strerror(error), effect)});
}

/// With notes: tells whether the image shares addresses with one before it.
void note_overlap(folder_run& run, std::uint32_t position, const header_reading& reading,
                  header_findings& findings) {
  if (!run.scope.notes || reading.dag_name.empty()) {
    return;
  }
  const dvi_desc& dvi = reading.dvi;
  const auto partner = run.images.add(image_range(position, dvi.dvi_img_vaddr, dvi.dvi_img_size));
  if (partner) {
    findings.push_back(
        {.kind = kind_of("images-overlap"),
         .place = static_cast<std::size_t>(reading.dag_name.data() - reading.header.data()),
         .text =
             joined("the image, ", dvi.dvi_img_size, " bytes from ", dvi.dvi_img_vaddr,
                    " on, shares addresses with that of ", printable(run.files.header(*partner)))});
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
void judge_dvi(folder_run& run, dvi_reading& reading) {
  if (reading.header_error != 0) {
    tell_unreadable(run, reading.header_path, reading.header_error,
                    ", so the DAG gets no name and no image");
  } else {
    header_findings& findings = reading.findings;
    for (const read_port& port : reading.ports) {
      follow_port(run, port, reading);
    }
    judge_repetition(run, reading.position, reading.header, findings);
    if (!reading.header.of(object_kind::dag).is_stopped) {
      judge_image(reading.header, reading.image, findings);
      judge_block(reading.header, run.scope.notes, findings);
    }
    note_overlap(run, reading.position, reading.header, findings);
    tell_all(run, reading.header_path, reading.text, std::move(findings));
  }
  if (reading.image.error != 0) {
    tell_unreadable(run, reading.image_path, reading.image.error, "");
  }
  add_package_size(run, reading.header);
}

void take_over(described_folder& described, dvi_reading& reading) {
  described.dvis.push_back(std::move(reading.described));
  described.before.push_back(reading.image.state);
  described.before.push_back(reading.header_state);
}

void describe_files(described_folder& described, const std::string& folder, folder_reading files) {
  described.inputs.folder = folder;
  for (std::size_t i = 0; i < files.dvis.size(); ++i) {
    described.inputs.headers.add({.name = files.header(i), .index = files.dvis[i].index});
  }
  described.inputs.dvis = std::move(files.dvis);
}

}  // namespace

int lint_folder(const lint_scope& scope, const finding_sink& sink, const dvi_progress& progress,
                described_folder* described) {
  if (!open_at(AT_FDCWD, scope.folder, O_RDONLY | O_DIRECTORY).is_open()) {
    return errno;
  }
  folder_run run{.scope = scope, .sink = sink, .files = read_folder(scope, sink)};
  const std::size_t count = run.files.dvis.size();
  for (std::size_t next = 0; next < count;) {
    std::vector<dvi_reading> readings =
        read_dvis(scope, run.files, static_cast<std::uint32_t>(next), described != nullptr);
    for (dvi_reading& reading : readings) {
      progress(reading.position, count);
      if (!has_header(run.files.headers, reading.position)) {
        continue;
      }
      judge_dvi(run, reading);
      if (described != nullptr) {
        take_over(*described, reading);
      }
    }
    next += readings.size();
  }
  if (described != nullptr) {
    describe_files(*described, scope.folder, std::move(run.files));
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

}  // namespace morvane::companion
