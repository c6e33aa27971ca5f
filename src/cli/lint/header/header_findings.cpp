#include "cli/lint/header/header_findings.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <utility>

namespace morvane::cli {

namespace {

/// Nothing else can be said about a header before one of these is mended, the first one first.
constexpr std::array about_all{kind_of("not-text"), kind_of("conflict-marker"),
                               kind_of("no-dag-name")};

bool is_about_all(const header_finding& found) {
  return std::ranges::find(about_all, found.kind) != about_all.end();
}

/// Which of the findings is about all of the header; their number if none is.
std::size_t find_about_all(const header_findings& findings) {
  for (const finding_kind* const kind : about_all) {
    const auto found = std::ranges::find(findings, kind, &header_finding::kind);
    if (found != findings.end()) {
      return static_cast<std::size_t>(found - findings.begin());
    }
  }
  return findings.size();
}

bool has_rows(const header_finding& found, std::uint64_t dag_rows) {
  const auto is_meant = [&](const header_finding& each) { return (each.dag_rows & dag_rows) != 0; };
  return is_meant(found) || std::ranges::any_of(found.rest, is_meant);
}

/// Makes each finding a part of its cause, which is given by its number; some are their own causes.
void fold(header_findings& findings, const std::vector<std::size_t>& causes) {
  header_findings left;
  for (std::size_t i = 0; i < findings.size(); ++i) {
    if (causes[i] != i) {
      add_effect(findings[causes[i]], std::move(findings[i]));
    }
  }
  for (std::size_t i = 0; i < findings.size(); ++i) {
    if (causes[i] == i) {
      left.push_back(std::move(findings[i]));
    }
  }
  findings = std::move(left);
}

/// Makes the findings that follow from one of them a part of that.
template <class Predicate>
void gather(header_findings& findings, std::size_t cause, Predicate follows) {
  std::vector<std::size_t> causes;
  for (std::size_t i = 0; i < findings.size(); ++i) {
    causes.push_back(follows(findings[i]) ? cause : i);
  }
  fold(findings, causes);
}

/// The first finding of a kind takes the others if there are many.
void gather_crowds(header_findings& findings) {
  constexpr std::size_t few = 2;
  std::map<std::pair<const finding_kind*, severity>, std::vector<std::size_t>> kinds;
  for (std::size_t i = 0; i < findings.size(); ++i) {
    kinds[std::pair(findings[i].kind, level_of(findings[i]))].push_back(i);
  }
  std::vector<std::size_t> causes(findings.size());
  for (const auto& [kind, members] : kinds) {
    for (const std::size_t member : members) {
      causes[member] = members.size() > few ? members[0] : member;
    }
  }
  fold(findings, causes);
}

}  // namespace

void add_effect(header_finding& cause, header_finding effect) {
  if (level_of(effect) < level_of(cause)) {
    cause.level = level_of(effect);
  }
  header_findings more = std::exchange(effect.rest, {});
  cause.rest.push_back(std::move(effect));
  std::ranges::move(more, std::back_inserter(cause.rest));
}

header_finding* cause_of(header_findings& findings, std::uint64_t dag_rows) {
  const auto found = std::ranges::find_if(findings, [&](const header_finding& each) {
    return is_about_all(each) || has_rows(each, dag_rows);
  });
  return found == findings.end() ? nullptr : &*found;
}

header_findings grouped(header_findings findings) {
  std::ranges::stable_sort(findings, {}, &header_finding::place);
  if (const std::size_t whole = find_about_all(findings); whole < findings.size()) {
    gather(findings, whole, [](const header_finding& /*other*/) { return true; });
    return findings;
  }
  const auto number_of = [&](header_findings::iterator found) {
    return static_cast<std::size_t>(found - findings.begin());
  };
  const auto name = std::ranges::find(findings, all_dag_rows, &header_finding::dag_rows);
  if (name != findings.end()) {
    gather(findings, number_of(name),
           [](const header_finding& other) { return other.kind == kind_of("wrong-name"); });
  }
  const auto second = std::ranges::find(findings, kind_of("second-dag"), &header_finding::kind);
  if (second != findings.end()) {
    const std::size_t place = second->place;
    gather(findings, number_of(second), [&](const header_finding& other) {
      return other.place >= place || other.kind == kind_of("defined-elsewhere") ||
             other.kind == kind_of("defined-twice");
    });
  }
  gather_crowds(findings);
  return findings;
}

}  // namespace morvane::cli
