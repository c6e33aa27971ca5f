// How much a page shows of what has no end. Its tables have every DVI and every port.
//
// A page has at most 64 KiB and 8 KiB for each DVI and each port, whatever the package holds; with
// --against, those of both packages. That is more than the sum of its parts:
//
//   the page     19 KiB for style, headings, legends and names of files, 15 KiB of findings,
//                12 KiB of differences, and 14 KiB for the bar of the file
//   a DVI        its name three times short (0.3 KiB each) and twice whole, or three times when it
//                is new (127 bytes, 0.75 KiB each), 3 KiB for all else in pictures and tables, and
//                1.5 KiB of variables, SMB blocks and differences
//   a port       two names in its row of the table (2 KiB each) and 0.6 KiB for all else there, a
//                short name, its row of the network and its bars (1.4 KiB), and 1.5 KiB of
//                variables, SMB blocks and differences
#pragma once

#include <cstddef>
#include <cstdint>

namespace morvane::cli {

/// The most bytes of a page that a text from a package takes. A name of 511 bytes is shown whole
/// unless it consists of quotes and ampersands, which HTML spells with 5 or 6 bytes.
inline constexpr std::size_t max_text_bytes = 2048;

/// The bytes of the entries of a list: the findings of one severity, all differences, those of a
/// DVI at most, and the variables or the SMB blocks of a DVI at most.
inline constexpr std::size_t max_findings_bytes = 5120;
inline constexpr std::size_t max_differences_bytes = 12288;
inline constexpr std::size_t max_dvi_differences_bytes = 4096;
inline constexpr std::size_t max_records_bytes = 2560;

/// The bytes of such a list of a DVI: each port brings room, until there is room for the most.
constexpr std::size_t bytes_with_ports(std::size_t most, std::uint64_t ports) {
  constexpr std::size_t of_a_port = 512;
  return ports >= most / of_a_port ? most : of_a_port * (1 + ports);
}

/// Findings of one severity, and differences, that are kept in memory. The others are counted.
inline constexpr std::size_t max_kept_findings = 100;
inline constexpr std::size_t max_kept_differences = 20000;

/// DVIs that a picture shows.
inline constexpr std::uint32_t max_pictured = 1000;

/// Parts that have room in the bar of the file; of more, those of several DVIs are joined.
inline constexpr std::uint32_t max_parts = 48;

/// Links of a row to the DVIs that get its data, or from which it comes.
inline constexpr std::size_t max_links = 8;

}  // namespace morvane::cli
