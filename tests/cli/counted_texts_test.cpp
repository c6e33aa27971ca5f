// One of something is not several, in every message.
#include <gtest/gtest.h>

#include "cli/outcome.h"
#include "harness/packages.h"

namespace morvane::test {
namespace {

/// Two DVIs whose images of one byte are at the same address, with a DAG binary behind it. The two
/// ports of the first one share a byte.
std::string package_of_ones() {
  dvi_desc first = dvi("first", 1, 1, 1);
  dvi_desc second = dvi("second", 1);
  first.dvi_dag_vaddr = second.dvi_dag_vaddr = 4097;
  second.vproc_id = 1;
  port_desc shared = port("data", "");
  shared.port_size = 1;
  return header(2) + bytes(first) + bytes(second) + bytes(shared) + bytes(shared) + "A" + "B";
}

struct CountedTexts : morvane_test {
  void SetUp() override { folder.write("net.bin", package_of_ones()); }

  [[nodiscard]] std::string printed(const std::vector<std::string>& arguments) const {
    const run_result run = morvane(arguments);
    return run.output + run.diagnostics;
  }
};

void expect_part(const std::string& text, std::string_view part) {
  EXPECT_NE(text.find(part), std::string::npos) << text;
}

TEST_F(CountedTexts, OfShow) {
  expect_part(printed({"show", "net.bin"}), "  image: offset 0x9b4, 1 byte, address 0x1000, ");
  folder.write("one.bin", "x");
  EXPECT_EQ(morvane({"show", "one.bin"}).output, "one.bin: 1 byte\n");
}

TEST_F(CountedTexts, OfExtract) {
  folder.make_folder("out");
  EXPECT_EQ(printed({"extract", "net.bin", "-o", "out"}),
            "out/first.dvi: 1 byte\nout/second.dvi: 1 byte\n");
}

TEST_F(CountedTexts, OfCheck) {
  EXPECT_EQ(printed({"check", "--notes", "net.bin"}),
            "net.bin:0x18: warning: DVI 0 (first): dvi_dag_vaddr is 0x1001, outside the image, "
            "which has 1 byte from 0x1000 on [dagbin-outside-image]\n"
            "net.bin:0xb8: warning: DVI 1 (second) has no ports [dvi-without-ports]\n"
            "net.bin:0xb4: warning: DVI 1 (second): dvi_dag_vaddr is 0x1001, outside the image, "
            "which has 1 byte from 0x1000 on [dagbin-outside-image]\n"
            "net.bin:0x5b0: note: output data of DVI 0 (first), 1 byte from 0x0 on, shares bytes "
            "with input data of DVI 0 (first), 1 byte from 0x0 on [ports-overlap]\n"
            "net.bin:0xac: note: the image of DVI 1 (second), 1 byte from 0x1000 on, shares "
            "addresses with the image of DVI 0 (first), 1 byte from 0x1000 on [images-overlap]\n"
            "net.bin: sound, 2 DVIs, 2 ports, without vproc records, 2486 bytes\n");
}

TEST_F(CountedTexts, OfDamage) {
  std::string disagreeing = package_of_ones();
  disagreeing[sizeof(pkg_header) + sizeof(dvi_desc) + 24] = 5;
  folder.write("size.bin", disagreeing);
  expect_part(printed({"check", "size.bin"}),
              "DVI 1: dvi_pkg_size is 5, but the ports and the image have 1 byte "
              "[block-size-disagrees]\n");
  folder.write("cut.bin", package_of_ones().substr(0, package_of_ones().size() - 1));
  expect_part(printed({"check", "cut.bin"}),
              "DVI 1: the image is cut: 1 byte is needed, and 0 are left [image-cut]\n");
  expect_part(printed({"report", "cut.bin"}), "what comes before the damage: 1 of 2 DVIs.");
  folder.write("none.bin", header(1));
  expect_part(printed({"report", "none.bin"}), "what comes before the damage: 0 of 1 DVI.");
}

TEST_F(CountedTexts, OfLint) {
  for (const std::string index : {"0", "1"}) {
    folder.write("in/net_split_" + index + ".dvi", "A");
    folder.write("in/_net_split_" + index + ".h",
                 "#define net" + index + "_DAG_NAME \"net" + index + "\"\n#define net" + index +
                     "_image_size 1\n#define net" + index + "_dagbin_start 9\n");
  }
  const std::string noted = printed({"lint", "in", "--notes"});
  expect_part(noted, "outside the image, which has 1 byte from ");
  expect_part(noted, "the image, 1 byte from ");
  folder.write("in/_net_split_0.h", "#define net0_DAG_NAME \"net0\"\n");
  expect_part(printed({"lint", "in"}), "the image: the image, 1 byte, is left out of the package");
}

}  // namespace
}  // namespace morvane::test
