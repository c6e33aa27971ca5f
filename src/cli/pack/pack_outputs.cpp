#include "cli/pack/pack_outputs.h"

#include <algorithm>
#include <cerrno>

#include "cli/output/printable_text.h"
#include "discovery/file_names.h"
#include "format/file_naming.h"

namespace morvane::cli {

namespace {

/// Whether an output would replace one of the inputs, under whatever name.
bool is_packed_file(const parsed_folder& parsed, const atomic_replacement& output) {
  const auto replaced = output.replaced();
  const file_states& inputs = parsed.before;
  return replaced && std::ranges::find(inputs, *replaced, &file_state::identity) != inputs.end();
}

/// Whether a header of this name would be read for one of the DVIs. One with the mark counts even
/// if none is read now: it can make up for the last one that was missing.
bool is_header_name(const input_list& dvis, const std::string& name) {
  bool is_one = false;
  for (const input_entry dvi : dvis) {
    const std::string_view stem = get_file_stem(dvi.name);
    is_one = is_one || name == header_name(stem) || name == marked_header_name(stem);
  }
  return is_one;
}

/// Whether the next run would take the file for one of its inputs.
bool becomes_input(const pack_inputs& inputs, const file_identity& folder,
                   const atomic_replacement& output) {
  return output.folder() == folder &&
         (lower_case_type(output.name()) == dvi_type || is_header_name(inputs.dvis, output.name()));
}

int find_output(const std::string& path, const parsed_folder& parsed, atomic_replacement& output) {
  if (const int error = output.find(path); error != 0) {
    return report_place_error(path, error);
  }
  if (is_packed_file(parsed, output)) {
    print_message(joined(printable(path), ": is one of the files to pack"));
    return status_failed;
  }
  const std::optional<struct stat> folder = status_of(open_folder(parsed.inputs.folder));
  if (!folder) {
    return report_file_error(parsed.inputs.folder, errno);
  }
  if (becomes_input(parsed.inputs, identity_in(*folder), output)) {
    print_message(joined(printable(path),
                         ": with this name in this folder, the next run would pack the file itself "
                         "or read it as a header"));
    return status_failed;
  }
  return status_fine;
}

}  // namespace

int find_outputs(const std::string& package, const std::string& depfile,
                 const parsed_folder& parsed, pack_outputs& outputs) {
  const int status = find_output(package, parsed, outputs.package);
  if (status != status_fine || depfile.empty()) {
    return status;
  }
  if (const int other = find_output(depfile, parsed, outputs.depfile); other != status_fine) {
    return other;
  }
  if (are_same_file(outputs.package, outputs.depfile)) {
    print_message(joined(printable(depfile), ": the dependency file cannot be the package"));
    return status_failed;
  }
  return status_fine;
}

}  // namespace morvane::cli
