// morvane report, as a user starts it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "cli/outcome.h"
#include "harness/packages.h"

namespace morvane::test {
namespace {

/// The page of a package, after a run that must be fine.
std::string page_of(const std::string& package, const std::vector<std::string>& options = {}) {
  const scratch_folder folder;
  folder.write("net.bin", package);
  folder.write("old.bin", sound_package());
  std::vector<std::string> arguments{"report", "net.bin"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  const run_result run = run_morvane(arguments, folder.path());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.diagnostics, "");
  return run.output;
}

void expect_shown(const std::string& page, std::string_view text) {
  EXPECT_NE(page.find(text), std::string::npos) << text << "\nis missing in\n" << page;
}

void expect_not_shown(const std::string& page, std::string_view text) {
  EXPECT_EQ(page.find(text), std::string::npos) << text;
}

using ReportCommand = morvane_test;

TEST_F(ReportCommand, WritesOnePageOfHtml) {
  const std::string page = page_of(sound_package_with_vproc());
  EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"en\">\n"));
  EXPECT_TRUE(page.ends_with("</body>\n</html>\n"));
  expect_shown(page, "content=\"default-src 'none'; style-src 'sha256-");
  expect_shown(page, "<title>net.bin: package report</title>");
  for (const char* forbidden : {"<script", "http:", "https:", " style=", "<img", "<link", "url("}) {
    expect_not_shown(page, forbidden);
  }
}

TEST_F(ReportCommand, BeginsWithTheVerdictAndTheNumbers) {
  const std::string page = page_of(sound_package_with_vproc());
  expect_shown(page,
               "<h1><bdi>net.bin</bdi></h1>\n"
               "<p><b class=\"verdict sound\">sound</b> 0 errors, 0 warnings, 0 notes</p>\n");
  expect_shown(page, "<dt>Size</dt><dd>5,064 bytes (4.9 KiB)</dd>");
  expect_shown(page, "<dt>Tool</dt><dd>version 2.1.6 ( HASH b3b3814 )</dd>");
  expect_shown(page, "<dt>DVIs</dt><dd>2</dd>");
  expect_shown(page, "<dt>Ports</dt><dd>4</dd>");
  expect_shown(page, "<dt>Variables</dt><dd>1</dd>");
  expect_shown(page, "<dt>SMB blocks</dt><dd>1</dd>");
  expect_shown(page, "<dt>Images</dt><dd>128 bytes</dd>");
  expect_shown(page, "<dt>vproc records</dt><dd>yes</dd>");
  expect_shown(page,
               "<p>The biggest image is that of <b><a href=\"#d0\">DVI 0</a></b> "
               "<bdi>first</bdi>: 64 bytes at 0x1000.</p>");
}

TEST_F(ReportCommand, ShowsTheNetwork) {
  const std::string page = page_of(sound_package());
  expect_shown(page, "<p>1 connection between 2 DVIs");
  expect_shown(page,
               "<i class=\"in\">in</i> <bdi>data</bdi> <span class=\"dims\">"
               "0\xC3\x97<wbr>0\xC3\x97<wbr>0\xC3\x97<wbr>16 <small>format 0</small></span> "
               "<span class=\"flow\">from outside</span>");
  expect_shown(page, "<i class=\"out\">out</i> <bdi>middle</bdi>");
  expect_shown(page, "<span class=\"flow\">to <a href=\"#d1\">DVI 1</a></span>");
  expect_shown(page, "<span class=\"flow\">from <a href=\"#d0\">DVI 0</a></span>");
  expect_shown(page, "<span class=\"flow\">to outside</span>");
}

TEST_F(ReportCommand, MarksAnInputThatDiffersFromItsOutput) {
  std::string package = sound_package();
  package[0x9F4 + 12] = 8;  // W of the input "middle"
  const std::string page = page_of(package);
  expect_shown(page, "0 errors, 1 warning, 0 notes");
  expect_shown(page, "<b class=\"bad\">differs: W is 8, not 16</b>");
  expect_shown(page, "<path class=\"differs\"");
  expect_shown(page, "<code>port-mismatch</code>");
}

TEST_F(ReportCommand, ShowsImagesThatShareAddresses) {
  std::string package = sound_package();
  package[0xA8 + 4] = 0x20;  // dvi_img_vaddr of DVI 1 becomes 0x1020
  package[0xA8 + 5] = 0x10;
  package[0xA8 + 12] = 0x20;
  package[0xA8 + 13] = 0x10;
  const std::string page = page_of(package);
  expect_shown(page, "<b class=\"bad\">2 images share addresses</b> with another");
  expect_shown(page, "<b class=\"bad\">shares addresses with <a href=\"#d1\">DVI 1</a></b>");
  expect_shown(page, "<title>DVI 0 and DVI 1 share 32 B</title>");
  expect_shown(page, "<span class=\"mono\">0x1020 to 0x105f</span> <span>64 bytes</span>");
}

TEST_F(ReportCommand, ShowsPortsThatShareBytes) {
  std::string package = sound_package();
  package[0x57C + 52] = 8;  // port_byte_offset of the output of DVI 0
  package[0x9F4 + 52] = 8;
  const std::string page = page_of(package);
  expect_shown(page, "<b class=\"bad\">input 0 and output 0 share bytes</b>");
  expect_shown(page, "<td>0x8<small class=\"bad\">shares bytes with input 0</small></td>");
}

TEST_F(ReportCommand, ListsThePartsOfTheFile) {
  const std::string page = page_of(sound_package_with_vproc());
  expect_shown(page, "<a href=\"#o0\">");
  expect_shown(page, "<title>image of DVI 1, 64 bytes at 0x1264</title>");
  expect_shown(page,
               "<tr id=\"o1264\"><th scope=\"row\"><i class=\"key image\"></i> image of DVI 1</th>"
               "<td class=\"mono\">0x1264</td><td>64 bytes</td><td>1.26%</td></tr>");
  expect_shown(page, "vproc block of DVI 0</th><td class=\"mono\">0x12bc</td>");
}

TEST_F(ReportCommand, ListsEveryRecordOfADvi) {
  const std::string page = page_of(sound_package_with_vproc());
  expect_shown(page,
               "<details class=\"dvi\" id=\"d0\" open><summary><h3>DVI 0: <bdi>first</bdi></h3> "
               "<span class=\"dim\">1 input, 1 output, image of 64 B</span></summary>");
  expect_shown(page, "<dt>dvi_img_vaddr</dt><dd><span class=\"mono\">0x1000</span></dd>");
  expect_shown(page, "<dt>dvi_pkg_size</dt><dd>2,224 bytes (2.2 KiB)</dd>");
  expect_shown(page, "<tr><th scope=\"row\"><bdi>gain</bdi></th><td>8</td><td>16</td></tr>");
  expect_shown(page, "<tr><th scope=\"row\"><bdi>lut</bdi></th><td class=\"mono\">0x100</td></tr>");
  expect_shown(page, "<bdi>middle</bdi><small><bdi>layer</bdi></small></th>");
}

TEST_F(ReportCommand, ShowsADashForADataFormatThatIsNotGiven) {
  std::string package = sound_package();
  package.replace(0x144 + 44, 4, 4, '\xFF');
  expect_shown(page_of(package), "<td>0 <small>-");
  expect_not_shown(page_of(sound_package()), "<td>0 <small>-");
}

TEST_F(ReportCommand, NeverLetsANameBecomeMarkup) {
  const std::string_view name = "</bdi><script>\"'&\xFF\x1B\xE2\x80\xAE";
  std::string package = header(1) + bytes(sound_dvi(0, name)) + bytes(port(name, name)) +
                        bytes(port(name, name)) + image() + bytes(vproc_desc{1, 1, 268}) +
                        bytes(variable(name)) + bytes(smb(name));
  const std::string page = page_of(package);
  const std::string_view shown =
      "<bdi>&lt;/bdi&gt;&lt;script&gt;&quot;&#39;&amp;\\xff\\x1b\\u202e</bdi>";
  std::size_t count = 0;
  for (std::size_t at = page.find(shown); at != std::string::npos; at = page.find(shown, at + 1)) {
    ++count;
  }
  EXPECT_EQ(count, 13U);
  expect_not_shown(page, "<script");
}

TEST_F(ReportCommand, ShowsWhatComesBeforeADamage) {
  const std::string page = page_of(sound_package().substr(0, 0x12A3));
  expect_shown(page, "<b class=\"verdict unsound\">not sound</b> 1 error, 0 warnings, 0 notes");
  expect_shown(page, "This page shows what comes before the damage: 1 of 2 DVIs.");
  expect_shown(page, "<code>image-cut</code>");
  expect_shown(page, "bytes after the damage</th><td class=\"mono\">0x9f4</td>");
  expect_shown(page, "DVI 0: <bdi>first</bdi>");
  expect_not_shown(page, "DVI 1: <bdi>");
}

TEST_F(ReportCommand, CallsUnknownWhatTheDamageHides) {
  const std::string page = page_of(sound_package().substr(0, 0x12A3));
  expect_shown(page, "<dt>Ports</dt><dd>2 and unknown</dd>");
  expect_shown(page, "<dt>vproc records</dt><dd>unknown</dd>");
  expect_shown(page, "<p>The biggest image known is that of <b>");
  expect_shown(page, "<span class=\"flow\">to unknown</span>");
  expect_shown(page, "<td>to unknown</td></tr>");
  expect_not_shown(page_of(sound_package()), "unknown");
}

TEST_F(ReportCommand, BeginsWithTheFindingsAndIsOnlyGreenWithoutWarnings) {
  std::string package = sound_package();
  package[0x57C + 56] = 'M';  // port_name of the output of DVI 0
  const std::string page = page_of(package);
  expect_shown(page,
               "<b class=\"verdict doubtful\">sound, with warnings</b> 0 errors, 1 warning, ");
  expect_shown(page, "<details open><summary>1 warning</summary>");
  expect_shown(page, "output Middle of DVI 0 (first), which feeds nothing</bdi>");
  EXPECT_LT(page.find("id=\"findings\""), page.find("<dl class=\"facts\">"));
}

TEST_F(ReportCommand, CountsWhatFollowsFromAFinding) {
  const std::string page =
      page_of(header(3) + bytes(sound_dvi(0, "a", 0, 1)) + bytes(sound_dvi(1, "b", 0, 1)) +
              bytes(sound_dvi(2, "c", 0, 1)) + bytes(sound_port("x", 0)) + image() +
              bytes(sound_port("x", 0)) + image() + bytes(sound_port("x", 0)) + image());
  expect_shown(page,
               "output x of DVI 1 (b) has the name of output x of DVI 0 (a) too (and 1 more)");
}

TEST_F(ReportCommand, MarksAnInputThatLostItsProducer) {
  std::string package = sound_package();
  package[0x57C + 56] = 'M';
  const std::string page = page_of(package, {"--against", "old.bin"});
  expect_shown(page, "<td>from outside <b class=\"bad\">lost its producer</b></td>");
  expect_shown(page, "<span class=\"flow\">from outside <b class=\"bad\">lost its producer</b>");
  expect_not_shown(page_of(sound_package(), {"--against", "old.bin"}), "lost its producer");
}

TEST_F(ReportCommand, MarksADviThatLostAProducerAmongMany) {
  const auto package = [](std::string_view name) {
    std::string table = header(40);
    std::string blocks;
    for (std::uint8_t i = 0; i < 40; ++i) {
      const std::string number = std::to_string(i);
      table += bytes(sound_dvi(i, "dag" + number, 1, 1));
      blocks += bytes(sound_port(i == 0 ? "camera" : "s" + std::to_string(i - 1), i)) +
                bytes(sound_port(i == 5 ? name : "s" + number, i + 1U)) + image();
    }
    return table + blocks;
  };
  folder.write("net.bin", package("other"));
  folder.write("old.bin", package("s5"));
  const run_result run = morvane({"report", "net.bin", "--against", "old.bin"});
  expect_shown(run.output, "<span>from outside</span> <b class=\"bad\">lost a producer</b>");
}

TEST_F(ReportCommand, ShowsAFileThatHoldsNothing) {
  for (const std::string& package : {std::string(), std::string("short"), header(0)}) {
    const std::string page = page_of(package);
    expect_shown(page, "not sound");
    expect_shown(page, "<p>There is no DVI to show.</p>");
    EXPECT_TRUE(page.ends_with("</html>\n"));
  }
}

TEST_F(ReportCommand, MarksWhatChanged) {
  std::string package = header(2) + bytes(sound_dvi(0, "first")) + bytes(sound_dvi(1, "third"));
  package += bytes(sound_port("data", 0)) + bytes(sound_port("middle", 32)) + image();
  package += bytes(sound_port("middle", 32)) + bytes(sound_port("prob", 48)) + image();
  const std::string page = page_of(package, {"--against", "old.bin"});
  expect_shown(page, "<a href=\"#changes\">3 differences</a> from <bdi>old.bin</bdi></p>");
  expect_shown(page,
               "<li><bdi>DVI &quot;first&quot;: output &quot;middle&quot;: port_byte_offset: 16 "
               "-&gt; 32</bdi></li>");
  expect_shown(page, "<li><bdi>DVI &quot;second&quot;: vanished from position 1</bdi></li>");
  expect_shown(page, "<h3>DVI 0: <bdi>first</bdi> <b class=\"mark\">changed</b></h3>");
  expect_shown(page, "<h3>DVI 1: <bdi>third</bdi> <b class=\"mark\">new</b></h3>");
  expect_shown(page, "<bdi>middle</bdi> <b class=\"mark\">changed</b><small>");
  expect_shown(page, "<bdi>data</bdi><small>");
  expect_shown(page, "out</i> <bdi>middle</bdi> <b class=\"mark\">changed</b> <span class=");
  expect_shown(page, "in</i> <bdi>data</bdi> <span class=");
  expect_shown(page,
               "ports of DVI 0, 2,160 bytes (2.1 KiB) at 0x144</title></rect><rect "
               "class=\"changed\"");
  expect_shown(page, "image of DVI 0, 64 bytes at 0x9b4</title></rect></a>");
  expect_shown(page, "</i> ports of DVI 0 <b class=\"mark\">changed</b></th>");
  expect_shown(page, "</i> image of DVI 0</th>");
  expect_shown(page, "</i> image of DVI 1 <b class=\"mark\">new</b></th>");
  expect_shown(page_of(sound_package(), {"--against", "old.bin"}),
               "<p>Every byte is the same.</p>");
}

TEST_F(ReportCommand, MarksAStretchOfTheFileThatHoldsAChangedDvi) {
  const auto package = [](const std::string& changed) {
    std::string text = header(100);
    for (int i = 0; i < 100; ++i) {
      text += bytes(dvi("net" + std::to_string(i), 1));
    }
    return text + std::string(50, 'i') + changed + std::string(49, 'i');
  };
  folder.write("net.bin", package("c"));
  folder.write("old.bin", package("i"));
  const std::string page = morvane({"report", "net.bin", "--against", "old.bin"}).output;
  expect_shown(page, "DVIs 48 to 50, 3 bytes at 0x3d2c</title></rect><rect class=\"changed\"");
  expect_shown(page, "DVIs 51 to 53, 3 bytes at 0x3d2f</title></rect></a>");
}

TEST_F(ReportCommand, SaysThatTheOlderPackageIsDamaged) {
  const std::string package = sound_package();
  folder.write("net.bin", package);
  folder.write("cut.bin", package.substr(0, package.size() - 1));
  const std::string sentence = "<p class=\"bad\">The older package is damaged.";
  expect_shown(morvane({"report", "net.bin", "--against", "cut.bin"}).output, sentence);
  expect_not_shown(morvane({"report", "net.bin", "--against", "net.bin"}).output, sentence);
}

TEST_F(ReportCommand, WarnsThatTheNetworkForGraphvizEndsAtADamage) {
  folder.write("net.bin", header(1));
  const std::string network = "digraph package {\n  node [shape=box]\n}\n";
  expect_morvane({"report", "--dot", "net.bin"}, 0, network,
                 "morvane: net.bin: the package is damaged; only what comes before the damage is "
                 "shown, and morvane check tells more\n");
  expect_morvane({"report", "--dot", "-q", "net.bin"}, 0, network);
}

TEST_F(ReportCommand, WritesTheNetworkForGraphviz) {
  std::string package = header(2) + bytes(sound_dvi(0, "a\"\\&\x1B\xEF\xBF\xBE\xE2\x80\xAE")) +
                        bytes(sound_dvi(1, "b"));
  package += bytes(sound_port("data", 0)) + bytes(sound_port("middle", 16)) + image();
  package += bytes(sound_port("middle", 20)) + bytes(sound_port("prob", 48)) + image();
  EXPECT_EQ(page_of(package, {"--dot"}),
            R"(digraph package {
  node [shape=box]
  dvi_0 [label="DVI 0\na\"\\&amp;\\x1b\\ufffe\\u202e"]
  dvi_1 [label="DVI 1\nb"]
  outside_to_0_0 [label="outside", shape=plain]
  outside_to_0_0 -> dvi_0 [label="data\n0x0x0x16\nformat 0"]
  dvi_0 -> dvi_1 [label="middle\n0x0x0x16\nformat 0\ndiffers: port_byte_offset is 20, not 16", color=red, fontcolor=red]
  outside_from_1_0 [label="outside", shape=plain]
  dvi_1 -> outside_from_1_0 [label="prob\n0x0x0x16\nformat 0"]
}
)");
}

TEST_F(ReportCommand, WritesTheSamePageToAFileAndToStandardOutput) {
  folder.write("net.bin", sound_package_with_vproc());
  const run_result run = morvane({"report", "net.bin"});
  expect_morvane({"report", "net.bin", "-o", "net.html"}, 0, "");
  EXPECT_EQ(folder.read("net.html"), run.output);
  EXPECT_EQ(morvane({"report", "./net.bin"}).output, run.output);
  EXPECT_EQ(morvane({"report", "net.bin", "-o", "-"}).output, run.output);
}

TEST_F(ReportCommand, WritesAWholeFileOrNone) {
  std::string package = header(1000);
  for (int i = 0; i < 1000; ++i) {
    package += bytes(dvi("net", 0));
  }
  folder.write("net.bin", package);
  folder.make_folder("out");
  folder.write("out/net.html", "as it was");
  expect_outcome(run_shell("ulimit -f 1024; \"$@\" report net.bin -o out/net.html", folder.path()),
                 2, "", "morvane: out/net.html: File too large\n");
  EXPECT_EQ(folder.files("out"), (std::map<std::string, std::string>{{"net.html", "as it was"}}));
  expect_morvane({"report", "net.bin", "-o", "none/net.html"}, 2, "",
                 "morvane: none/net.html: No such file or directory\n");
  expect_outcome(run_shell("\"$@\" report net.bin >/dev/full", folder.path()), 2, "",
                 "morvane: standard output: No space left on device\n");
}

TEST_F(ReportCommand, NeverReplacesAPackageThatItReads) {
  folder.write("net.bin", sound_package());
  folder.write("old.bin", sound_package_with_vproc());
  std::filesystem::create_symlink("net.bin", folder.path() + "/link.bin");
  const std::map<std::string, std::string> files = folder.files();
  expect_morvane({"report", "net.bin", "-o", "./net.bin"}, 2, "",
                 "morvane: ./net.bin: the page must not replace a package that it is made from\n");
  expect_morvane({"report", "--dot", "net.bin", "-o", "link.bin"}, 2, "",
                 "morvane: link.bin: the page must not replace a package that it is made from\n");
  expect_morvane({"report", "net.bin", "--against", "old.bin", "-o", "old.bin"}, 2, "",
                 "morvane: old.bin: the page must not replace a package that it is made from\n");
  EXPECT_EQ(folder.files(), files);
}

TEST_F(ReportCommand, EndsWithStatus2WhenAPackageCannotBeRead) {
  folder.write("net.bin", sound_package());
  expect_morvane({"report", "none"}, 2, "", "morvane: none: No such file or directory\n");
  expect_morvane({"report", "net.bin", "--against", "none", "-o", "x"}, 2, "",
                 "morvane: none: No such file or directory\n");
  EXPECT_EQ(folder.files().size(), 1U);
}

/// A package of so many DVIs in a chain, each with so many ports.
std::string chain(std::uint32_t dvis, std::uint32_t ports) {
  std::string package = header(dvis);
  for (std::uint32_t i = 0; i < dvis; ++i) {
    package += bytes(dvi("net_split_" + std::to_string(i), 0, ports / 2, ports / 2));
  }
  for (std::uint32_t i = 0; i < dvis; ++i) {
    for (std::uint32_t k = 0; k < ports; ++k) {
      const std::uint32_t from = k < ports / 2 ? i : i + 1;
      package +=
          bytes(port("tensor_" + std::to_string(from) + "_" + std::to_string(k % (ports / 2)),
                     std::string(64, 'n')));
    }
  }
  return package;
}

TEST_F(ReportCommand, ShowsTheLongestNamesWhole) {
  const std::string page = page_of(header(1) + bytes(dvi(std::string(127, 'd'), 0, 1)) +
                                   bytes(port(std::string(511, 'n'), std::string(511, 'l'))));
  expect_shown(page, "<h3>DVI 0: <bdi>" + std::string(127, 'd') + "</bdi></h3>");
  expect_shown(page, "<bdi>" + std::string(511, 'n') + "</bdi><small><bdi>" +
                         std::string(511, 'l') + "</bdi></small></th>");
}

TEST_F(ReportCommand, DrawsAThousandDvisAndSaysHowManyItLeavesOut) {
  const std::string page = page_of(chain(1003, 2));
  expect_shown(page, "<p class=\"dim\">3 DVIs are left out here; the tables show all.</p>");
  expect_shown(page, "<summary>DVIs 1000 to 1002</summary>");
  expect_shown(page, "<details class=\"dvi\" id=\"d1002\">");
  expect_not_shown(page_of(chain(40, 2)), "left out here");
}

}  // namespace
}  // namespace morvane::test
