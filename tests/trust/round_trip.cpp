#include "trust/round_trip.h"

#include <filesystem>

#include "driver/options.h"
#include "driver/pack_run.h"
#include "inspect/inspect_package.h"

namespace morvane::test {

namespace {

int pack(const scratch_folder& scratch, std::string_view folder, std::string_view package,
         bool vproc) {
  settings = {.filename = scratch.path(package), .dir = scratch.path(folder), .vproc = vproc};
  return run_pack();
}

}  // namespace

round_trip pack_inspect_pack(const scratch_folder& scratch,
                             const std::map<std::string, std::string>& files, bool vproc) {
  round_trip result;
  for (const auto& [name, content] : files) {
    scratch.write("input/" + name, content);
  }
  result.first_status = pack(scratch, "input", "first.bin", vproc);
  inspect_package(scratch.path("first.bin"), scratch.path(), vproc);
  result.second_status = pack(scratch, "parse", "second.bin", vproc);
  result.first = scratch.read("first.bin");
  result.second = scratch.read("second.bin");
  std::filesystem::remove_all(scratch.path("input"));
  std::filesystem::remove_all(scratch.path("parse"));
  return result;
}

}  // namespace morvane::test
