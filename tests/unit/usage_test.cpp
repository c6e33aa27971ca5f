#include "driver/usage.h"

#include <gtest/gtest.h>

#include "printed_text.h"

namespace morvane {
namespace {

using test::printed_by;

TEST(PrintUsage, ShowsTheOptionsAndExamples) {
  EXPECT_EQ(printed_by(print_usage), R"(morvane_gen: dump network Dag information to bin file.
Usage: morvane_gen -d | --dir [directory path for qubrix output, like path/to/qubrix/model/olt/output/folder]
                   -f | --filename [filename for dump bin file, default filename is morvane_gen.bin]
                   -p | --parsedir [directory path for verbose output, default is current folder]
                   -v | --verbose [read out dump bin file information]
                   -c | --vproc [include vproc info in bin file]
                   --version [show morvane_gen version]
                   -h | --help [morvane_gen usage]

example:
1. dump qubrix output to bin file
	./morvane_gen -d path/to/qubrix/model/olt/output/folder -f path/to/output/folder/morvane_gen.bin
2. dump qubrix output to bin file and show verbose information
	./morvane_gen -d path/to/qubrix/model/olt/output/folder -f path/to/output/folder/morvane_gen.bin -p path/to/output/folder -v
3. show verbose information from dump bin
	./morvane_gen -f path/to/output/folder/morvane_gen.bin -p path/to/output/folder -v
4. using vproc, add -c for previous #1, #2, #3 cases
	./morvane_gen ...... -c

)");
}

TEST(PrintVersion, ShowsVersionAndHash) {
  EXPECT_EQ(printed_by([] { EXPECT_EQ(print_version(), 0); }), "version 2.1.6 ( HASH b3b3814 )\n");
}

}  // namespace
}  // namespace morvane
