// Standard streams that are closed, or take no more for a while.
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <thread>

#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

/// Runs the tool with a redirection of a shell, such as ">&-".
run_result run_redirected(const std::string& redirection, const std::vector<std::string>& arguments,
                          const std::string& folder) {
  return run_program(tool_words(arguments, {"sh", "-c", "exec \"$@\" " + redirection, "sh"}),
                     folder);
}

/// A DAG whose packing prints warnings, and the package of it.
std::string put_net(const scratch_folder& folder) {
  put_dag(folder, "net", dag_lines("net", 5), "image");
  return package_header(1) + dvi_record({.img_size = 5, .pkg_size = 5, .dag_name = "net"}) +
         "image" + no_vproc;
}

using ClosedStream = tool_test;

TEST_F(ClosedStream, MessagesOfAClosedStandardOutputStayOutOfThePackage) {
  const std::string package = put_net(folder);
  expect_run(run_redirected(">&-", pack_with_vproc, folder.path()), 0, "");
  expect_bytes(folder.read("net.bin"), package);
}

TEST_F(ClosedStream, AllThreeMayBeClosed) {
  if (!run_prefix().empty()) {
    GTEST_SKIP() << "an emulator or a checker does not start without standard error";
  }
  const std::string package = put_net(folder);
  expect_run(
      run_redirected("<&- >&- 2>&-", {"-d", "in", "-f", "net.bin", "-c", "-v"}, folder.path()), 0,
      "");
  expect_bytes(folder.read("net.bin"), package);
  expect_bytes(folder.read("parse/net.dvi"), "image");
}

TEST_F(ClosedStream, DiagnosticsOfAClosedStandardErrorStayOutOfEveryFile) {
  if (!run_prefix().empty()) {
    GTEST_SKIP() << "an emulator or a checker does not start without standard error";
  }
  // The second DVI claims a negative number of ports, which stops the inspection.
  const std::string package = package_header(2) + dvi_record({.img_size = 5, .dag_name = "net"}) +
                              dvi_record({.input_num = 0x80000000, .dag_name = "bad"}) + "image";
  folder.write("net.bin", package);
  EXPECT_EQ(run_redirected("<&- >&- 2>&-", {"-f", "net.bin", "-v"}, folder.path()).status, 134);
  expect_bytes(folder.read("net.bin"), package);
  expect_bytes(folder.read("parse/net.dvi"), "image");
  expect_bytes(folder.read("parse/_bad.h"),
               "#define\tbad_DAG_NAME\t\"bad\"\n"
               "#define\tbad_use_ping_pong_vmem\t0\n"
               "#define\tbad_image_start\t0\n"
               "#define\tbad_image_size\t0\n"
               "#define\tbad_dagbin_start\t0\n");
}

TEST_F(ClosedStream, AnUnknownOptionSaysSoToNobody) {
  if (!run_prefix().empty()) {
    GTEST_SKIP() << "an emulator or a checker does not start without standard error";
  }
  const run_result run = run_redirected("2>&-", {"-x"}, folder.path());
  EXPECT_EQ(run.status, 255);
  EXPECT_TRUE(run.output.starts_with("morvane_gen: unknown switch\n"));
}

/// All that a pipe yields, read in small pieces with pauses between them. If wanted, the tool is
/// stopped and goes on after each of the first pieces: more than a pipe holds is left then, so it
/// is writing. At its end the search for leaks of a sanitizer would wait for ever.
std::string read_slowly(int pipe, pid_t tool, bool stops) {
  std::string text;
  std::array<char, 4096> piece{};
  for (ssize_t got = 0; (got = ::read(pipe, piece.data(), piece.size())) > 0;) {
    text.append(piece.data(), static_cast<std::size_t>(got));
    if (stops && text.size() < 100000) {
      ::kill(tool, SIGSTOP);
      ::kill(tool, SIGCONT);
    }
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
  return text;
}

/// A package with a report of some hundred kilobytes.
void write_long_package(const scratch_folder& folder) {
  std::string package = package_header(1) + dvi_record({.input_num = 1000, .dag_name = "net"});
  for (int i = 0; i < 1000; ++i) {
    package += port_record({.port_name = "port"});
  }
  folder.write("net.bin", package);
}

/// What the tool writes into a pipe whose writing end has these flags, and its status.
run_result run_into_pipe(const std::vector<std::string>& arguments, const std::string& folder,
                         int flags, bool stops) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0 || ::fcntl(ends[1], F_SETFL, flags) != 0) {
    return {};
  }
  const pid_t tool = start_program(tool_words(arguments), folder, ends[1]);
  ::close(ends[1]);
  run_result run{.status = -1, .output = {}, .diagnostics = {}};
  run.output = read_slowly(ends[0], tool, stops);
  run.status = wait_for(tool);
  ::close(ends[0]);
  return run;
}

using SlowStream = tool_test;

TEST_F(SlowStream, GetsEveryLineInNonBlockingModeAndOfARunThatIsStoppedAndGoesOn) {
  write_long_package(folder);
  const run_result expected = tool({"-f", "net.bin", "-v"});
  ASSERT_GT(expected.output.size(), 200000U);
  for (const bool stops : {false, true}) {
    const run_result run =
        run_into_pipe({"-f", "net.bin", "-v"}, folder.path(), stops ? 0 : O_NONBLOCK, stops);
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.output == expected.output) << run.output.size();
  }
}

TEST_F(SlowStream, ThatNobodyReadsEndsTheRunByItsSignal) {
  write_long_package(folder);
  std::array<int, 2> ends{};
  ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
  ::close(ends[0]);
  const pid_t tool = start_program(tool_words({"-f", "net.bin", "-v"}), folder.path(), ends[1]);
  ::close(ends[1]);
  EXPECT_EQ(wait_for(tool), 128 + SIGPIPE);
}

}  // namespace
}  // namespace morvane::test
