#include "cli/diff/compare_packages.h"

#include <cstddef>
#include <cstring>
#include <map>
#include <unordered_map>
#include <vector>

#include "cli/package/package_walk.h"

namespace morvane::cli {

namespace {

/// Both packages, and who is told how they differ.
struct package_pair {
  const opened_package& old_package;
  const opened_package& new_package;
  const difference_sink& sink;
};

/// A DVI of both packages.
struct dvi_pair {
  named_record name;
  const morvane_view_dvi& old_dvi;
  const morvane_view_dvi& new_dvi;
};

/// A record of both packages: what was read from it, and where in the file it is.
template <class Record>
struct record_pair {
  const Record& old_record;
  const Record& new_record;
  std::size_t old_offset;
  std::size_t new_offset;
};

/// Tells which fields differ. When none does but the bytes do, they differ behind a text.
template <class Record, class Fields>
void compare_fields(const package_pair& both, const compared_part& part,
                    const record_pair<Record>& pair, std::size_t width, const Fields& fields) {
  if (std::memcmp(both.old_package.view.bytes + pair.old_offset,
                  both.new_package.view.bytes + pair.new_offset, width) == 0) {
    return;
  }
  bool is_shown = false;
  for (const record_field<Record>& field : fields) {
    const field_value old_value = field.value(pair.old_record);
    const field_value new_value = field.value(pair.new_record);
    if (old_value != new_value) {
      both.sink({part, field_change{field.name, old_value, new_value}});
      is_shown = true;
    }
  }
  if (!is_shown) {
    both.sink({part, hidden_change{}});
  }
}

/// A record of one list or of both. Positions in the lists are counted from 0.
struct matched_record {
  named_record name;
  std::optional<std::uint32_t> old_position{};
  std::optional<std::uint32_t> new_position{};
};

/// The names of records, each with how often it occurred up to there.
template <class Record>
std::vector<named_record> names_of(const std::vector<Record>& records, morvane_text Record::*name) {
  std::unordered_map<std::string_view, std::uint32_t> occurrences;
  std::vector<named_record> names;
  names.reserve(records.size());
  for (const Record& record : records) {
    const std::string_view text = str(record.*name);
    names.push_back({text, ++occurrences[text]});
  }
  return names;
}

/// The old list in its order, and behind it what only the new one has.
std::vector<matched_record> match(const std::vector<named_record>& old_names,
                                  const std::vector<named_record>& new_names) {
  std::vector<matched_record> matches;
  std::map<named_record, std::size_t> places;
  for (const named_record& name : old_names) {
    const auto position = static_cast<std::uint32_t>(matches.size());
    places.emplace(name, position);
    matches.push_back({.name = name, .old_position = position});
  }
  for (std::uint32_t position = 0; position < new_names.size(); ++position) {
    const auto [place, is_new] = places.emplace(new_names[position], matches.size());
    if (is_new) {
      matches.push_back({.name = new_names[position]});
    }
    matches[place->second].new_position = position;
  }
  return matches;
}

/// Tells whether a record appeared, vanished or moved. Returns whether both packages have it.
bool compare_positions(const package_pair& both, const compared_part& part,
                       const matched_record& match) {
  if (!match.old_position) {
    both.sink({part, appeared{*match.new_position}});
  } else if (!match.new_position) {
    both.sink({part, vanished{*match.old_position}});
  } else if (*match.old_position != *match.new_position) {
    both.sink({part, moved{*match.old_position, *match.new_position}});
  }
  return match.old_position && match.new_position;
}

template <class Record>
std::vector<Record> records_of(const opened_package& package, const morvane_view_dvi& dvi,
                               const record_form<Record>& form) {
  std::vector<Record> records;
  for_each_record(package.view, dvi, form, [&](const Record& one) { records.push_back(one); });
  return records;
}

/// Compares the records of one form that a DVI has.
template <class Record>
void compare_records(const package_pair& both, const dvi_pair& dvi,
                     const record_form<Record>& form) {
  const std::vector<Record> old_records = records_of(both.old_package, dvi.old_dvi, form);
  const std::vector<Record> new_records = records_of(both.new_package, dvi.new_dvi, form);
  for (const matched_record& found :
       match(names_of(old_records, form.name), names_of(new_records, form.name))) {
    const compared_part part{form.kind, dvi.name, found.name};
    if (compare_positions(both, part, found)) {
      const Record& old_record = old_records[*found.old_position];
      const Record& new_record = new_records[*found.new_position];
      compare_fields(
          both, part,
          record_pair<Record>{old_record, new_record, old_record.offset, new_record.offset},
          form.width, form.fields);
    }
  }
}

void compare_headers(const package_pair& both) {
  const morvane_view& old_view = both.old_package.view;
  const morvane_view& new_view = both.new_package.view;
  if (has_header(both.old_package) && has_header(both.new_package)) {
    compare_fields(both, {}, record_pair<morvane_view>{old_view, new_view, 0, 0},
                   sizeof(morvane_pkg_header), header_fields);
  }
  const bool had_vproc = old_view.vproc_table != 0;
  const bool has_vproc = new_view.vproc_table != 0;
  if (had_vproc != has_vproc) {
    both.sink({{}, field_change{"has_vproc", had_vproc, has_vproc}});
  }
}

void compare_images(const package_pair& both, const dvi_pair& dvi) {
  const auto found =
      compare_bytes({both.old_package.bytes, image_of(both.old_package.view, dvi.old_dvi)},
                    {both.new_package.bytes, image_of(both.new_package.view, dvi.new_dvi)});
  if (found) {
    both.sink({{object_kind::image, dvi.name, {}}, *found});
  }
}

void compare_dvi_fields(const package_pair& both, const dvi_pair& dvi) {
  const auto& [name, old_dvi, new_dvi] = dvi;
  const compared_part part{object_kind::dvi, name, {}};
  compare_fields(both, part,
                 record_pair<morvane_view_dvi>{old_dvi, new_dvi, old_dvi.offset, new_dvi.offset},
                 sizeof(morvane_dvi_desc), dvi_fields);
  if (old_dvi.vproc_offset != 0 && new_dvi.vproc_offset != 0) {
    compare_fields(
        both, part,
        record_pair<morvane_view_dvi>{old_dvi, new_dvi, old_dvi.vproc_offset, new_dvi.vproc_offset},
        sizeof(morvane_vproc_desc), vproc_fields);
  }
}

void compare_dvis(const package_pair& both, const dvi_pair& dvi) {
  compare_dvi_fields(both, dvi);
  compare_records(both, dvi, input_form);
  compare_records(both, dvi, output_form);
  compare_images(both, dvi);
  compare_records(both, dvi, variable_form);
  compare_records(both, dvi, smb_form);
  release_dvi(both.old_package, dvi.old_dvi);
  release_dvi(both.new_package, dvi.new_dvi);
}

/// Tells the differences of what can be walked.
void compare_walks(const package_pair& both, progress_line& progress) {
  compare_headers(both);
  const std::vector<morvane_view_dvi> old_dvis = dvis_of(both.old_package.view);
  const std::vector<morvane_view_dvi> new_dvis = dvis_of(both.new_package.view);
  for (const matched_record& found : match(names_of(old_dvis, &morvane_view_dvi::dag_name),
                                           names_of(new_dvis, &morvane_view_dvi::dag_name))) {
    if (compare_positions(both, {object_kind::dvi, found.name, {}}, found)) {
      const morvane_view_dvi& old_dvi = old_dvis[*found.old_position];
      compare_dvis(both, {found.name, old_dvi, new_dvis[*found.new_position]});
      show_progress(progress, old_dvi.block);
    }
  }
}

}  // namespace

void compare_packages(const opened_package& old_package, const opened_package& new_package,
                      console& streams, const difference_sink& sink) {
  streams.progress =
      begin_progress(old_package.path, old_package.bytes.bytes().size(), streams.quiet);
  bool is_reported = false;
  const difference_sink reporting = [&](const difference& found) {
    is_reported = true;
    sink(found);
  };
  compare_walks({old_package, new_package, reporting}, streams.progress);
  if (!is_reported || is_damaged(old_package) || is_damaged(new_package)) {
    const auto found = compare_bytes({old_package.bytes, old_package.bytes.bytes()},
                                     {new_package.bytes, new_package.bytes.bytes()});
    if (found) {  // it is missing when somebody changes a package meanwhile
      sink({{}, *found});
    }
  }
  hide_progress(streams.progress);
}

}  // namespace morvane::cli
