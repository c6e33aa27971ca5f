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
#include "cli/lint/folder_network.h"
#include "cli/lint/folder_rules.h"
#include "cli/lint/header/line_index.h"
#include "cli/lint/header/macro_names.h"
#include "cli/lint/mixed_up_files.h"
#include "cli/output/printable_text.h"

namespace morvane::cli {

namespace {

/// The first DVI of a DAG's name, and the hash of its header.
struct earlier_dag {
  std::uint32_t dvi;
  std::size_t hash;
};

/// Which headers lie beside the image of another DVI. Found out as soon as one may do so.
struct mixed_up_files {
  image_stems stems{};
  std::vector<header_claim> claims{};  // empty until then
  std::vector<std::uint32_t> causes{};
};

/// What was read so far. The maps are by name.
struct folder_run {
  const lint_scope& scope;
  const finding_sink& sink;
  folder_reading files;
  mixed_up_files mixed_up{};
  std::unordered_map<std::string, earlier_dag> dags{};
  folder_network network{};
  std::uint64_t package_size = sizeof(pkg_header);
};

std::size_t place_of_name(const header_reading& reading) {
  return static_cast<std::size_t>(reading.dag_name.data() - reading.header.data());
}

/// Whether two images have the same index, which is told of their names: one is a copy.
bool have_one_index(const folder_run& run, std::uint32_t one, std::uint32_t other) {
  return run.files.dvis[one].index == run.files.dvis[other].index;
}

/// Tells of a DAG's name that an earlier header has. Returns whether the whole header is the same.
bool check_repetition(folder_run& run, std::uint32_t position, const header_reading& reading,
                      header_findings& findings) {
  if (reading.dag_name.empty()) {
    return false;
  }
  const earlier_dag dag{.dvi = position, .hash = std::hash<std::string_view>()(reading.header)};
  const auto [first, is_new] = run.dags.try_emplace(std::string(reading.dag_name), dag);
  if (is_new) {
    return false;
  }
  const bool is_copy = first->second.hash == dag.hash;
  if (is_copy && have_one_index(run, position, first->second.dvi)) {
    return true;
  }
  const std::string other = printable(run.files.header(first->second.dvi));
  const std::size_t place = place_of_name(reading);
  if (is_copy) {
    findings.push_back(
        {.kind = kind_of("mixed-up-files"),
         .place = place,
         .text = joined("the header is a copy of ", other, ", which names the same DAG")});
    return true;
  }
  findings.push_back(
      {.kind = kind_of("duplicate-dag-name"),
       .place = place,
       .text = joined("the DAG's name ", in_quotes(reading.dag_name), " is that of ", other, " too",
                      run.scope.vproc ? ": nothing can be packed" : ""),
       .level = run.scope.vproc ? severity::error : severity::warning});
  return false;
}

/// The macro that is defined on the line of a place before that, or the word at the place.
std::string_view name_at(std::string_view header, std::size_t place) {
  constexpr std::string_view define = "#define";
  constexpr std::string_view blanks = " \t\r";
  const std::size_t begin = place == 0 ? 0 : header.rfind('\n', place - 1) + 1;
  std::string_view line = header.substr(begin, header.find('\n', begin) - begin);
  const std::size_t defined = line.substr(0, place - begin).rfind(define);
  line.remove_prefix(defined == std::string_view::npos ? place - begin : defined + define.size());
  line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
  return line.substr(0, line.find_first_of(blanks));
}

// NOLINTNEXTLINE(misc-no-recursion): what follows from a finding has no rest
finding placed_finding(line_index& lines, std::string_view path, std::string_view header,
                       const header_finding& found) {
  finding placed{.kind = found.kind,
                 .file = path,
                 .place = lines.position(found.place),
                 .text = found.text,
                 .level = found.level,
                 .name = name_at(header, found.place)};
  for (const header_finding& effect : found.rest) {
    placed.rest.push_back(placed_finding(lines, path, header, effect));
  }
  return placed;
}

void report_unreadable(const finding_sink& sink, std::string_view what, std::string_view path,
                       int error, std::string_view effect = "") {
  const bool is_missing = error == ENOENT || error == ELOOP;
  sink(
      {.kind = is_missing && effect.empty() ? kind_of("image-missing") : kind_of("unreadable-file"),
       .file = path,
       .place = whole_file,
       .text = joined(is_missing ? joined("the ", what, " is a link that leads nowhere")
                                 : unreadable_text(what, error),
                      effect)});
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

file_state look_at_image(const std::string& path) {
  file_state state;
  open_input(path, state);
  return state;
}

/// Reads what the header of a DVI says about whose it is; nothing from one that cannot be read.
header_claim read_claim(const folder_run& run, std::uint32_t position) {
  const std::string& folder = run.scope.folder;
  const input_list& dvis = run.files.dvis;
  const header_file header = load_header(join_path(folder, run.files.header(position)));
  const header_reading reading = read_header(header.text, false, dvis[position].index, position,
                                             [](object_kind /*kind*/, std::string_view /*name*/,
                                                std::span<const std::byte> /*record*/) {});
  header_claim claim{.dag_name = std::string(reading.dag_name)};
  if (header.state.error != 0 || reading.dag_name.empty()) {
    return claim;
  }
  claim.named = named_dvi(run.files, run.mixed_up.stems, reading.dag_name, position);
  claim.place = line_index(header.text).position(place_of_name(reading));
  if (claim.named != no_dvi && claim.named != position) {
    const auto size = static_cast<off_t>(reading.dvi.dvi_img_size);
    claim.fits = look_at_image(join_path(folder, dvis[position].name)).size == size;
    claim.fits_named = look_at_image(join_path(folder, dvis[claim.named].name)).size == size;
  }
  return claim;
}

/// Whether a header lies beside the image of another DVI. If it names another, all headers are read
/// once more, as what they say decides it.
bool is_mixed_up(folder_run& run, const dvi_reading& reading) {
  mixed_up_files& files = run.mixed_up;
  const std::uint32_t position = reading.position;
  const std::uint32_t named = named_dvi(run.files, files.stems, reading.header.dag_name, position);
  if (reading.header.dag_name.empty() || named == no_dvi || named == position) {
    return false;
  }
  if (files.claims.empty()) {
    for (std::uint32_t i = 0; i < run.files.dvis.size(); ++i) {
      files.claims.push_back(read_claim(run, i));
    }
    files.causes = find_mixed_up(files.claims);
  }
  return files.causes[position] != no_dvi;
}

/// Tells of a header that lies beside the image of another DVI, at the first of those with one
/// cause.
void check_mixed_up(const folder_run& run, dvi_reading& reading) {
  const std::uint32_t position = reading.position;
  const auto& [stems, claims, causes] = run.mixed_up;
  if (causes[position] == position && !have_one_index(run, position, claims[position].named)) {
    reading.findings.push_back({.kind = kind_of("mixed-up-files"),
                                .place = place_of_name(reading.header),
                                .text = mixed_up_text(run.files, claims, position)});
  }
}

/// Adds what has the same cause: the other headers that lie beside the images of others.
void add_others(const folder_run& run, std::uint32_t position, std::vector<std::string>& paths,
                finding& first) {
  const auto& [stems, claims, causes] = run.mixed_up;
  if (causes.empty() || causes[position] != position ||
      claims[claims[position].named].named == position) {
    return;  // if two were exchanged, the text names both
  }
  paths.reserve(causes.size());  // the findings refer to them
  for (std::uint32_t i = position + 1; i < causes.size(); ++i) {
    if (causes[i] == position) {
      paths.push_back(join_path(run.scope.folder, run.files.header(i)));
      first.rest.push_back({.kind = first.kind,
                            .file = paths.back(),
                            .place = claims[i].place,
                            .text = mixed_up_text(run.files, claims, i)});
    }
  }
}

void report_all(const folder_run& run, std::uint32_t position, const header_file& header,
                header_findings findings) {
  line_index lines(header.text);
  std::ranges::stable_sort(findings, {}, &header_finding::place);
  const header_finding* last = nullptr;
  std::vector<std::string> paths;
  for (const header_finding& found : findings) {
    if (last == nullptr || last->place != found.place || last->kind != found.kind) {
      finding placed = placed_finding(lines, header.path, header.text, found);
      if (found.kind == kind_of("mixed-up-files")) {
        add_others(run, position, paths, placed);
      }
      run.sink(placed);
    }
    last = &found;
  }
}

/// Looks at a header together with those before it and with its image. What follows from a header
/// that belongs to another image is not told.
void check_header(folder_run& run, const header_file& header, const file_state& image,
                  dvi_reading& reading) {
  header_findings& findings = reading.findings;
  if (is_mixed_up(run, reading)) {
    check_mixed_up(run, reading);
    add_doubted_dvi(run.network, reading.position);
  } else if (check_repetition(run, reading.position, reading.header, findings)) {
    add_doubted_dvi(run.network, reading.position);
  } else {
    if (!reading.header.of(object_kind::dag).is_stopped) {
      check_image(reading.header, image, findings);
      check_block(reading.header, run.scope.notes, findings);
    }
    add_dvi(run.network, reading);
  }
  report_all(run, reading.position, header, std::move(findings));
}

/// Looks at a DVI together with those before it, and tells what was found.
void check_dvi(folder_run& run, const header_file& header, const file_state& image,
               dvi_reading& reading) {
  if (header.state.error != 0) {
    report_unreadable(run.sink, "file", header.path, header.state.error,
                      ", so the DAG gets no name and no image");
    add_doubted_dvi(run.network, reading.position);
  } else {
    check_header(run, header, image, reading);
  }
  if (image.error != 0) {
    const std::string path = join_path(run.scope.folder, run.files.dvis[reading.position].name);
    report_unreadable(run.sink, "file", path, image.error);
  }
  add_package_size(run, reading.header);
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
  folder_names names = read_names(scope.folder);
  if (names.error != 0) {
    report_unreadable(sink, "folder", scope.folder, names.error);
    return 0;
  }
  bool has_error = false;  // then the folder is not the network that is meant
  const auto watched_sink = [&](const finding& found) {
    has_error = has_error || level_of(found) == severity::error;
    sink(found);
  };
  std::ranges::sort(names.names, {}, [](const char* name) { return std::string_view(name); });
  folder_run run{.scope = scope, .sink = sink, .files = check_names(scope, names, watched_sink)};
  run.mixed_up.stems = stems_of(run.files.dvis);
  const std::size_t count = run.files.dvis.size();
  for (std::uint32_t position = 0; position < count; ++position) {
    progress(position, count);
    if (run.files.has_header(position)) {
      lint_dvi(run, position, parsed);
    }
  }
  if (!has_error) {
    check_network(run.network, scope, run.files, sink);
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
