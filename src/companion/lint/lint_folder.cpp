#include "companion/lint/lint_folder.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <unordered_map>

#include "companion/lint/compare_header.h"
#include "companion/lint/dvi_rules.h"
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

/// An output of a DVI that was read.
struct left_output {
  std::uint32_t dvi;
  port_flow flow;
};

/// What was read so far.
struct folder_run {
  const lint_scope& scope;
  const finding_sink& sink;
  folder_reading files{};
  std::unordered_map<std::string, std::uint32_t> dag_names{};
  std::unordered_map<std::string, left_output> outputs{};
  memory_plan images{};  // with notes
  std::uint64_t package_size = sizeof(pkg_header);
};

/// A header's text. Returns 0 or an errno.
int load_header(const std::string& path, std::string& text) {
  const readable_file file = open_to_read(path);
  if (!file.handle.is_open()) {
    return errno;
  }
  if (file.size < 0) {
    const auto status = status_of(file.handle);
    return status && S_ISDIR(status->st_mode) ? EISDIR : EINVAL;
  }
  text = read_file(file);
  return 0;
}

/// Compares a port with the outputs of earlier DVIs, or takes it up as an output.
void follow_port(folder_run& run, std::uint32_t position, object_kind kind, std::string_view name,
                 const port_desc& port, std::string_view header, header_findings& findings) {
  if (kind == object_kind::output) {
    const bool is_last = position + 1 == run.files.dvis.size();  // no input follows
    if (!is_last) {
      run.outputs.insert_or_assign(std::string(name), left_output{position, flow_of(port)});
    }
    return;
  }
  const auto output = run.outputs.empty() ? run.outputs.end() : run.outputs.find(std::string(name));
  if (output == run.outputs.end()) {
    return;
  }
  const std::string differing = flow_differences(flow_of(port), output->second.flow);
  if (!differing.empty()) {
    findings.push_back(
        {.kind = kind_of("port-mismatch"),
         .place = static_cast<std::size_t>(name.data() - header.data()),
         .text = joined("input ", printable(name), " differs from the output of the same name in ",
                        printable(run.files.headers[output->second.dvi].name), ": ", differing)});
  }
}

/// The record of a sink, which is one of a kind.
template <class Record>
Record record_of(std::span<const std::byte> bytes) {
  Record record{};
  std::memcpy(&record, bytes.data(), sizeof record);
  return record;
}

void judge_repetition(folder_run& run, std::uint32_t position, const header_reading& reading,
                      header_findings& findings) {
  if (reading.dag_name.empty()) {
    return;
  }
  const auto [known, is_new] = run.dag_names.try_emplace(std::string(reading.dag_name), position);
  if (!is_new) {
    findings.push_back(
        {.kind = kind_of("duplicate-dag-name"),
         .place = static_cast<std::size_t>(reading.dag_name.data() - reading.header.data()),
         .text = joined("the DAG's name ", in_quotes(reading.dag_name), " is that of ",
                        printable(run.files.headers[known->second].name), " too",
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
         .text = joined("the image, ", dvi.dvi_img_size, " bytes from ", dvi.dvi_img_vaddr,
                        " on, shares addresses with that of ",
                        printable(run.files.headers[*partner].name))});
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

/// Takes up a record of a block, in the order of the package.
void take_up(described_dvi& described, object_kind kind, std::span<const std::byte> record) {
  std::vector<std::byte>& records =
      family_of(kind) == macro_family::port ? described.ports : described.vproc_records;
  records.insert(records.end(), record.begin(), record.end());
}

/// Reads a header and looks at its image. Fills what the header describes, if it is asked for.
void lint_dvi(folder_run& run, std::uint32_t position, described_dvi* described) {
  const std::string path = join_path(run.scope.folder, run.files.headers[position].name);
  const std::string image_path = join_path(run.scope.folder, run.files.dvis[position].name);
  std::string text;
  const int error = load_header(path, text);
  if (error != 0) {
    tell_unreadable(run, path, error, ", so the DAG gets no name and no image");
  }
  header_findings mismatches;
  const auto take_record = [&](object_kind kind, std::string_view name,
                               std::span<const std::byte> record) {
    if (described != nullptr) {
      take_up(*described, kind, record);
    }
    if (family_of(kind) == macro_family::port) {
      follow_port(run, position, kind, name, record_of<port_desc>(record), text, mismatches);
    }
  };
  const header_reading reading =
      read_header(text, run.scope.vproc, run.files.dvis[position].index, position, take_record);
  const image_file image = look_at_image(image_path, reading.dvi.dvi_img_size);
  if (error == 0) {
    header_findings findings = compare_header(reading, run.scope.vproc, run.scope.notes);
    std::ranges::move(mismatches, std::back_inserter(findings));
    judge_repetition(run, position, reading, findings);
    if (!reading.of(object_kind::dag).is_stopped) {
      judge_image(reading, image, findings);
      judge_block(reading, run.scope.notes, findings);
    }
    note_overlap(run, position, reading, findings);
    tell_all(run, path, text, std::move(findings));
  }
  if (image.error != 0) {
    tell_unreadable(run, image_path, image.error, "");
  }
  add_package_size(run, reading);
  if (described != nullptr) {
    described->dvi = reading.dvi;
    described->vproc = reading.vproc;
  }
}

}  // namespace

int lint_folder(const lint_scope& scope, const finding_sink& sink, const dvi_progress& progress,
                described_dvis* dvis) {
  if (!open_at(AT_FDCWD, scope.folder, O_RDONLY | O_DIRECTORY).is_open()) {
    return errno;
  }
  folder_run run{.scope = scope, .sink = sink};
  run.files = read_folder(scope, sink);
  for (std::uint32_t i = 0; i < run.files.dvis.size(); ++i) {
    progress(i, run.files.dvis.size());
    described_dvi* const described = dvis != nullptr ? &dvis->emplace_back() : nullptr;
    if (!run.files.headers[i].is_missing) {
      lint_dvi(run, i, described);
    }
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
