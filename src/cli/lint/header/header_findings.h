// The findings about one header, before they are told.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/findings/findings.h"

namespace morvane::cli {

/// A finding at a place of the header.
struct header_finding {
  const finding_kind* kind;
  std::size_t place;
  std::string text;
  std::optional<severity> level{};     // that of the kind if there is none
  std::vector<header_finding> rest{};  // what follows from the same cause, without a rest
  std::uint64_t dag_rows = 0;          // the macros of the DAG that it is about, a bit for each
};

/// What a finding about the DAG's name is about.
inline constexpr std::uint64_t all_dag_rows = ~std::uint64_t{0};

/// In the order in which they were found.
using header_findings = std::vector<header_finding>;

/// The severity of a finding.
inline severity level_of(const header_finding& found) {
  return found.level.value_or(found.kind->level);
}

/// Makes a finding, and what follows from it, a part of its cause, which becomes as severe.
void add_effect(header_finding& cause, header_finding effect);

/// What a fault of one of these macros of the DAG follows from; null if that is none of the
/// findings.
header_finding* cause_of(header_findings& findings, std::uint64_t dag_rows);

/// Leaves one finding for each cause, in the order of the places: a header that has to be mended as
/// a whole has one; a wrong name of the DAG has the wrong names of its macros; the line that names
/// a second DAG has what follows it; and of more than a few findings of one kind the first has the
/// others.
header_findings grouped(header_findings findings);

}  // namespace morvane::cli
