// What morvane lint promises, over thousands of folders with mistakes: its errors are those of the
// pack runs, a clean header means the same to C, and every difference has a finding.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "cli/lint/c_compiler.h"
#include "cli/lint/lint_folder.h"
#include "cli/lint/mistaken_folder.h"
#include "cli/lint/mistakes.h"
#include "cli/pack/pack_command.h"
#include "cli/pack/packed_folder.h"
#include "cli/package/package_walk.h"
#include "driver/pack_sections.h"
#include "format/macros.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "harness/silence.h"
#include "harness/test_size.h"
#include "io/message.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;
using cli::severity;

/// A finding that can be kept.
struct kept_finding {
  std::string code;
  severity level;
  std::string file;
  std::uint32_t line;
  std::uint32_t column;
  std::string text;
  bool is_effect = false;  // of the finding before it that is none
};

kept_finding kept(const cli::finding& found, bool is_effect) {
  return {.code = std::string(found.kind->code),
          .level = cli::level_of(found),
          .file = std::string(found.file),
          .line = found.place.line,
          .column = found.place.column,
          .text = found.text,
          .is_effect = is_effect};
}

std::vector<kept_finding> lint(const std::string& folder, bool vproc) {
  std::vector<kept_finding> all;
  const cli::lint_scope scope{.folder = folder, .vproc = vproc, .notes = true};
  const int error = cli::lint_folder(
      scope,
      [&](const cli::finding& found) {
        all.push_back(kept(found, false));
        for (const cli::finding& effect : found.rest) {
          all.push_back(kept(effect, true));
        }
      },
      [](std::size_t, std::size_t) {}, nullptr);
  EXPECT_EQ(error, 0);
  return all;
}

/// The macros of a record, as C knows them.
void add_macros(std::vector<packed_macro>& macros, const std::string& header,
                const std::string& prefix, std::span<const macro_row> rows,
                std::span<const std::byte> record) {
  for (const macro_row& row : rows) {
    const bool is_text = row.kind == macro_kind::text;
    macros.push_back(
        {header, prefix + std::string(row.suffix), is_text,
         is_text ? std::string(load_text(record, row)) : std::to_string(load_number(record, row))});
  }
}

std::span<const std::byte> record_at(const std::string& package, std::size_t offset,
                                     std::size_t width) {
  return std::as_bytes(std::span(package)).subspan(offset, width);
}

/// All macros that a package has values for. The headers are in the order of the DVIs.
std::vector<packed_macro> packed_macros(const std::string& package,
                                        const std::vector<std::string>& headers) {
  std::vector<packed_macro> macros;
  morvane_view view{};
  EXPECT_EQ(morvane_view_open(&view, bytes_of_package(package).data(), package.size(), nullptr), 0);
  cli::for_each_dvi(view, [&](const morvane_view_dvi& dvi) {
    const std::string& header = headers.at(dvi.position);
    const std::string dag(cli::str(dvi.dag_name));
    macros.push_back({header, dag + "_DAG_NAME", true, dag});
    add_macros(macros, header, dag, dag_macros, record_at(package, dvi.offset, sizeof(dvi_desc)));
    cli::for_each_port(view, dvi, [&](const morvane_view_port& port, const auto& /*name*/) {
      add_macros(macros, header, dag + "_" + std::string(cli::str(port.port_name)), port_macros,
                 record_at(package, port.offset, sizeof(port_desc)));
    });
    cli::for_each_variable(view, dvi, [&](const auto& variable, const auto& /*name*/) {
      add_macros(macros, header, std::string(cli::str(variable.var)), variable_macros,
                 record_at(package, variable.offset, sizeof(var_desc)));
    });
    cli::for_each_smb(view, dvi, [&](const auto& smb, const auto& /*name*/) {
      add_macros(macros, header, dag + "_" + std::string(cli::str(smb.smb_name)), smb_macros,
                 record_at(package, smb.offset, sizeof(smb_desc)));
    });
  });
  return macros;
}

bool is_c_name(const std::string& name) {
  constexpr std::string_view in_names =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  return !name.empty() && (name[0] < '0' || name[0] > '9') &&
         name.find_first_not_of(in_names) == std::string::npos;
}

/// The codes of warnings about a value that C may give the macro, in another way.
const std::set<std::string> unsure{"conditional", "cut-name", "trailing-text", "quoted-number"};

/// Whether a difference is told: on a line of the text that holds the name, with the name, or where
/// a block ends.
bool is_told(const std::string& text, const std::string& name,
             const std::vector<kept_finding>& findings) {
  std::set<std::uint32_t> lines;
  std::uint32_t number = 1;
  for (std::size_t begin = 0; begin < text.size(); ++number) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    if (text.substr(begin, end - begin).find(name) != std::string::npos) {
      lines.insert(number);
    }
    begin = end + 1;
  }
  // In lines that depend on a condition, nothing is an error. An include guard is in the first
  // line.
  const bool depends =
      text.find("\n#if") != std::string::npos ||
      std::ranges::find(findings, "conditional", &kept_finding::code) != findings.end();
  return std::ranges::any_of(findings, [&](const kept_finding& found) {
    const bool is_there = lines.contains(found.line) || found.code == "block-ends" ||
                          found.text.find(name) != std::string::npos;
    return is_there && (depends || found.level == severity::error || unsure.contains(found.code));
  });
}

/// The codes of errors that mean that nothing can be packed, or that the package is not sound.
const std::set<std::string> ends_the_run{
    "no-images",       "unpaired-image",      "disordered-indices", "name-too-long",  "no-dag-name",
    "image-too-short", "negative-image-size", "duplicate-dag-name", "unsafe-dag-name"};

/// The codes of what DVIs have to do with each other, which comes behind all else. The DVIs of a
/// random folder belong to no network.
const std::set<std::string> network_codes{
    "port-mismatch",         "renamed-port",    "input-for-output",
    "producer-comes-later",  "repeated-output", "port-too-small",
    "images-overlap-partly", "images-overlap",  "bytes-overwritten",
};

bool is_of_network(const kept_finding& found) {
  return network_codes.contains(found.code);
}
bool is_no_note_of_a_header(const kept_finding& found) {
  return found.level != severity::note && !is_of_network(found);
}
bool is_error(const kept_finding& found) {
  return found.level == severity::error;
}
bool is_end_of_the_run(const kept_finding& found) {
  return is_error(found) && ends_the_run.contains(found.code);
}
bool has_any(const std::vector<kept_finding>& findings, bool (*is_wanted)(const kept_finding&)) {
  return std::ranges::any_of(findings, is_wanted);
}

class LintPromises : public testing::Test {
 protected:
  /// Makes the folder of a case. Returns its path.
  std::string write_folder(const mistaken_folder& made, unsigned number) const {
    const std::string name = std::to_string(number);
    for (const auto& [file, content] : made.files) {
      scratch.write(name + "/" + file, content);
    }
    scratch.make_folder(name);
    if (!made.link.empty()) {
      fs::create_symlink(made.target, scratch.path(name + "/" + made.link));
    }
    if (!made.folder.empty()) {
      scratch.make_folder(name + "/" + made.folder);
    }
    return scratch.path(name);
  }

  static void check_order(const std::vector<kept_finding>& findings, const std::string& folder) {
    const kept_finding* last = nullptr;
    for (const kept_finding& next : findings) {
      if (next.is_effect) {
        continue;
      }
      if (last != nullptr && last->file == next.file &&
          is_of_network(*last) == is_of_network(next)) {
        EXPECT_LE(std::pair(last->line, last->column), std::pair(next.line, next.column))
            << next.file;
      }
      last = &next;
    }
    for (const kept_finding& found : findings) {
      EXPECT_TRUE(found.file == folder || found.file.starts_with(folder + "/"));
      EXPECT_GE(found.line, 1U);
      EXPECT_GE(found.column, 1U);
    }
  }

  /// Lints a folder, which must stay as it is, and counts the codes.
  std::vector<kept_finding> lint_unchanged(const std::string& folder, bool vproc) {
    struct stat before {};
    struct stat after {};
    ::stat(folder.c_str(), &before);
    const std::vector<kept_finding> findings = lint(folder, vproc);
    ::stat(folder.c_str(), &after);
    EXPECT_EQ(std::pair(before.st_mtim.tv_sec, before.st_mtim.tv_nsec),
              std::pair(after.st_mtim.tv_sec, after.st_mtim.tv_nsec));
    EXPECT_EQ(std::pair(before.st_ctim.tv_sec, before.st_ctim.tv_nsec),
              std::pair(after.st_ctim.tv_sec, after.st_ctim.tv_nsec));
    for (const kept_finding& found : findings) {
      ++codes[found.code];
      if (found.level != severity::note) {
        findings_of[found.file].push_back(found);
      }
    }
    return findings;
  }

  /// Takes up the macros of a sound package, to be compared with C.
  void add_package(const std::string& package, const std::string& folder, unsigned number,
                   bool vproc) {
    pack_inputs inputs{.folder = folder, .dvis = {}, .headers = {}};
    const collected_messages forgotten(false);
    find_inputs(inputs, vproc);
    std::vector<std::string> headers;
    for (const input_entry header : inputs.headers) {
      const std::string name(header.name);
      headers.push_back(std::to_string(number) + "/" + name);
      findings_of[headers.back()] = findings_of[folder + "/" + name];
    }
    std::ranges::move(packed_macros(package, headers), std::back_inserter(macros));
    ++packed;
  }

  /// Whether morvane pack packs a folder.
  [[nodiscard]] bool is_packed_safely(const std::string& folder, bool vproc) const {
    const silence no_results;
    const silence no_messages(STDERR_FILENO);
    cli::pack_options options;
    options.folder = folder;
    options.package = scratch.path("safe.bin");
    options.vproc = vproc;
    options.sync = false;
    cli::console streams{.quiet = true};
    const int status = cli::run_pack(options, streams);
    EXPECT_EQ(fs::remove(options.package), status == cli::status_fine);
    return status == cli::status_fine;
  }

  /// Makes, lints and packs a folder, and compares the verdicts.
  void try_folder(random_numbers& random, unsigned number) {
    const bool is_clean = one_in(random, 8);
    const bool vproc = one_in(random, 2);
    const std::string folder = write_folder(make_folder(random, is_clean), number);
    const std::vector<kept_finding> findings = lint_unchanged(folder, vproc);
    check_order(findings, folder);
    EXPECT_FALSE(is_clean && has_any(findings, is_no_note_of_a_header))
        << "a finding in a clean folder";
    const bool is_packed = pack_folder(folder, vproc, scratch.path("net.bin"));
    const std::string package = is_packed ? scratch.read("net.bin") : std::string();
    const bool is_good = is_packed && is_sound(package, vproc);
    EXPECT_TRUE(is_good || has_any(findings, is_error)) << "an error is missing";
    EXPECT_FALSE(is_good && has_any(findings, is_end_of_the_run)) << "an error is invented";
    EXPECT_EQ(is_packed_safely(folder, vproc), !has_any(findings, is_error));
    if (is_good) {
      add_package(package, folder, number, vproc);
    }
    fs::remove(scratch.path("net.bin"));
  }

  /// Compares the macros of all packages so far with C.
  void compare_with_c() {
    const auto is_odd = [](const packed_macro& macro) { return !is_c_name(macro.name); };
    std::erase_if(macros, is_odd);
    const std::vector<c_answer> answers = ask_compiler(macros, scratch);
    for (std::size_t i = 0; i < macros.size(); ++i) {
      const packed_macro& macro = macros[i];
      compared += answers[i] == c_answer::no_macro ? 0 : 1;
      if (answers[i] == c_answer::other) {
        ++different;
        EXPECT_TRUE(is_told(scratch.read(macro.header), macro.name, findings_of[macro.header]))
            << "no error for " << macro.name << ", which is not " << macro.value << ", in\n"
            << scratch.read(macro.header);
      }
    }
    macros.clear();
    findings_of.clear();
  }

  scratch_folder scratch{fast_folder()};
  std::vector<packed_macro> macros;
  std::map<std::string, std::vector<kept_finding>> findings_of;  // errors and warnings
  std::map<std::string, unsigned> codes;                         // and how often each was found
  unsigned packed = 0;
  unsigned compared = 0;
  unsigned different = 0;
};

/// The codes that lint has: those with a case of a folder in tests/findings/.
std::set<std::string> all_codes() {
  const fs::path findings = source_folder() + "/tests/findings";
  std::set<std::string> codes;
  for (const auto& entry : fs::recursive_directory_iterator(findings)) {
    if (entry.path().filename() == "in") {
      codes.insert(*entry.path().lexically_relative(findings).begin());
    }
  }
  codes.erase("stale-baseline-entry");  // is not about the folder
  return codes;
}

TEST_F(LintPromises, HoldOverFoldersWithMistakes) {
  if (!has_compiler()) {
    GTEST_SKIP() << "there is no C compiler named cc";
  }
  random_numbers random(test_seed());
  const unsigned cases = cases_to_run(5000, 60);
  for (unsigned i = 0; i < cases && !HasFailure(); ++i) {
    SCOPED_TRACE("case " + std::to_string(i) + " with the seed above");
    try_folder(random, i);
    if (i % 250 == 249 || i + 1 == cases) {
      compare_with_c();
    }
  }
  std::erase_if(codes, [](const auto& code) { return network_codes.contains(code.first); });
  unsigned rarest = cases;
  const std::set<std::string> known_codes = all_codes();
  for (const std::string& code : known_codes) {
    const unsigned count = network_codes.contains(code) ? cases : codes[code];
    rarest = std::min(rarest, count);
    EXPECT_TRUE(count >= 20 || cases < 5000) << code << ": " << codes[code] << " times";
  }
  EXPECT_LE(codes.size(), known_codes.size()) << "a code has no case";
  std::printf("%u folders packed, %u macros compared with C, %u of them differ\n", packed, compared,
              different);
  std::printf("every code at least %u times\n", rarest);
}

}  // namespace
}  // namespace morvane::test
