// The input is a package; every command of morvane that reads packages gets it, and one to compare
// it with.

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/check/check_command.h"
#include "cli/diff/diff_command.h"
#include "cli/extract/extract_command.h"
#include "cli/report/report_command.h"
#include "cli/show/show_command.h"
#include "fuzz/fuzz_target.h"
#include "harness/packages.h"
#include "harness/scratch_folder.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;
using cli::console;

/// Another descriptor in the place of a standard stream, for as long as it lives.
class replaced_stream {
 public:
  replaced_stream(int stream, int other) : stream_(stream), before_(::dup(stream)) {
    ::dup2(other, stream);
  }
  replaced_stream(const replaced_stream&) = delete;
  replaced_stream& operator=(const replaced_stream&) = delete;
  ~replaced_stream() {
    ::dup2(before_, stream_);
    ::close(before_);
  }

 private:
  int stream_;
  int before_;
};

struct command_result {
  int status;
  std::string output;
};

/// Runs a command and keeps what it prints away from the fuzzer.
template <class Options>
command_result run(int (*command)(const Options&, console&), const Options& options) {
  static const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  static const int printed = ::memfd_create("printed", MFD_CLOEXEC);
  require(::ftruncate(printed, 0) == 0 && ::lseek(printed, 0, SEEK_SET) == 0, "a file in memory");
  command_result result{};
  {
    const replaced_stream output(STDOUT_FILENO, printed);
    const replaced_stream diagnostics(STDERR_FILENO, nowhere);
    console streams;
    result.status = command(options, streams);
    flush_results(streams);
  }
  result.output.resize(static_cast<std::size_t>(::lseek(printed, 0, SEEK_END)));
  const ssize_t got = ::pread(printed, result.output.data(), result.output.size(), 0);
  require(got == static_cast<ssize_t>(result.output.size()), "what was printed can be read");
  return result;
}

void require_json(const command_result& result, const char* promise) {
  require(nlohmann::json::accept(result.output), promise);
}

/// Runs check in every format. Returns its status.
int check(const std::string& package) {
  cli::check_options options{.packages = {package}, .scope = {.notes = true}};
  const command_result text = run(cli::run_check, options);
  for (const char* format : {"json", "sarif", "gitlab"}) {
    options.findings.reports = {{cli::find_format(format)}};
    const command_result result = run(cli::run_check, options);
    require_json(result, "check writes JSON");
    require(result.status == text.status, "the verdict is the same in every format");
  }
  require(text.status == 0 || text.status == 1, "a package that can be read is checked");
  return text.status;
}

void show(const std::string& package, bool is_sound) {
  const command_result text = run(cli::run_show, {.package = package});
  const command_result json =
      run(cli::run_show, {.package = package, .json = true, .digest = true});
  require_json(json, "show writes JSON");
  require(text.status == json.status, "show ends alike in every format");
  require(json.status == 0 || (json.status == 1 && !is_sound), "a sound package is shown");
}

/// Compares both ways round.
void diff(const std::string& one, const std::string& other, bool are_same) {
  for (const auto& [first, second] : {std::pair(one, other), std::pair(other, one)}) {
    const command_result text = run(cli::run_diff, {first, second, false});
    const command_result json = run(cli::run_diff, {first, second, true});
    require_json(json, "diff writes JSON");
    require(text.status == (are_same ? 0 : 1), "packages are the same when every byte is");
    require(json.status == text.status, "diff ends alike in every format");
    require(text.output.empty() == are_same, "a difference is told");
  }
}

/// Whether every name on a page is text: no element begins that a page does not have.
bool holds_markup(const std::string& page) {
  for (const char* markup : {"<script", "<img", "<iframe", "<style>", "<!--"}) {
    const std::size_t first = page.find(markup);
    const bool is_own = std::string_view(markup) == "<style>";
    if ((is_own ? page.find(markup, first + 1) : first) != std::string::npos) {
      return true;
    }
  }
  return false;
}

void report(const std::string& package, const std::string& other) {
  const command_result page = run(cli::run_report, {.package = package});
  require(page.status == 0 && page.output.ends_with("</html>\n"), "a page is written to its end");
  require(!holds_markup(page.output), "no name becomes markup");
  require(run(cli::run_report, {.package = package}).output == page.output,
          "a page is the same every time");
  const command_result marked = run(cli::run_report, {.package = package, .old_package = other});
  require(marked.status == 0 && !holds_markup(marked.output), "a page with changes is written");
  const command_result dot = run(cli::run_report, {.package = package, .dot = true});
  require(dot.status == 0 && dot.output.ends_with("}\n"), "a Graphviz file is written");
}

void extract(const scratch_folder& scratch, const std::string& package) {
  scratch.make_folder("out");
  const command_result result =
      run(cli::run_extract, {.package = package, .folder = scratch.path("out")});
  require(result.status == 0 || result.status == 1, "what can be extracted is extracted");
  for (const auto& entry : fs::directory_iterator(scratch.path("out"))) {
    require(entry.is_regular_file() && entry.path().string().ends_with(".dvi"),
            "only images are extracted");
  }
  fs::remove_all(scratch.path("out"));
}

}  // namespace
}  // namespace morvane::test

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace morvane::test;
  static const scratch_folder scratch;
  const std::string package(text_of_input(data, size));
  std::string changed = package;
  for (std::size_t i = 0; i < changed.size(); i += 97) {
    changed[i] ^= static_cast<char>(0x20);
  }
  scratch.write("net.bin", package);
  scratch.write("changed.bin", changed);
  scratch.write("sample.bin", sample_package());
  const bool is_sound = check(scratch.path("net.bin")) == 0;
  show(scratch.path("net.bin"), is_sound);
  diff(scratch.path("net.bin"), scratch.path("net.bin"), true);
  diff(scratch.path("net.bin"), scratch.path("changed.bin"), package == changed);
  diff(scratch.path("net.bin"), scratch.path("sample.bin"), package == sample_package());
  report(scratch.path("net.bin"), scratch.path("changed.bin"));
  extract(scratch, scratch.path("net.bin"));
  require(scratch.files().size() == 3, "nothing is made outside the folder");
  require(scratch.read("net.bin") == package, "the package stays as it is");
  return 0;
}
