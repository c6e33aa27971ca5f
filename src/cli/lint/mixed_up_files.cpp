#include "cli/lint/mixed_up_files.h"

#include <algorithm>

#include "cli/output/printable_text.h"
#include "discovery/file_names.h"
#include "format/file_naming.h"

namespace morvane::cli {

namespace {

/// Whether all of a circle of headers belong to the images beside them, only under exchanged names.
bool are_renamed(const std::vector<header_claim>& claims, std::uint32_t first) {
  bool all_fit = true;
  bool all_fit_named = true;
  std::uint32_t i = first;
  do {
    all_fit = all_fit && claims[i].fits;
    all_fit_named = all_fit_named && claims[i].fits_named;
    i = claims[i].named;
  } while (i != first);
  return all_fit && !all_fit_named;
}

/// Marks a circle of headers that name each other, unless the files are only renamed.
void mark_circle(const std::vector<header_claim>& claims, std::uint32_t first,
                 std::vector<std::uint32_t>& causes) {
  if (are_renamed(claims, first)) {
    return;
  }
  std::uint32_t least = first;
  for (std::uint32_t i = claims[first].named; i != first; i = claims[i].named) {
    least = std::min(least, i);
  }
  std::uint32_t i = first;
  do {
    causes[i] = least;
    i = claims[i].named;
  } while (i != first);
}

/// Finds the circles: follows the names from each DVI until one that was met before.
void mark_circles(const std::vector<header_claim>& claims, std::vector<std::uint32_t>& causes) {
  std::vector<std::uint32_t> met(claims.size(), no_dvi);  // from which DVI it was met
  for (std::uint32_t start = 0; start < claims.size(); ++start) {
    std::uint32_t i = start;
    while (i != no_dvi && met[i] == no_dvi) {
      met[i] = start;
      i = claims[i].named;
    }
    if (i != no_dvi && met[i] == start && claims[i].named != i) {
      mark_circle(claims, i, causes);
    }
  }
}

}  // namespace

image_stems stems_of(const input_list& dvis) {
  image_stems stems;
  for (std::uint32_t i = 0; i < dvis.size(); ++i) {
    stems.try_emplace(get_file_stem(dvis[i].name), i);
  }
  return stems;
}

std::uint32_t named_dvi(const folder_reading& files, const image_stems& stems,
                        std::string_view dag_name, std::uint32_t position) {
  const std::string_view own = get_file_stem(files.dvis[position].name);
  if (dag_name == own || dag_name == own.substr(0, own.rfind(index_mark))) {
    return position;
  }
  const auto named = stems.find(dag_name);
  return named == stems.end() ? no_dvi : named->second;
}

std::vector<std::uint32_t> find_mixed_up(const std::vector<header_claim>& claims) {
  std::vector<std::uint32_t> causes(claims.size(), no_dvi);
  mark_circles(claims, causes);
  std::vector<std::uint32_t> firsts(claims.size(), no_dvi);  // of those that name the same DVI
  for (std::uint32_t i = 0; i < claims.size(); ++i) {
    const std::uint32_t named = claims[i].named;
    if (named != no_dvi && named != i && claims[named].named == named) {
      firsts[named] = std::min(firsts[named], i);
      causes[i] = firsts[named];
    }
  }
  return causes;
}

std::string mixed_up_text(const folder_reading& files, const std::vector<header_claim>& claims,
                          std::uint32_t position) {
  const header_claim& claim = claims[position];
  const std::string start =
      joined("the DAG's name ", in_quotes(claim.dag_name), " is that of the image ",
             printable(files.dvis[claim.named].name), ", ");
  const std::string other = printable(files.header(claim.named));
  if (claims[claim.named].named == position) {
    return joined(start, "and ", other, " has the name of this one: the two were exchanged");
  }
  return joined(start, "whose header is ", other, ": this is the header of another image");
}

}  // namespace morvane::cli
