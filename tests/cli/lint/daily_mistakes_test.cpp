// Right networks of any size have no finding. One mistake of daily work in them is told in few
// lines, of which one has the file that is wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>

#include "cli/lint/lint_folder.h"
#include "cli/lint/mistakes.h"
#include "harness/run_tool.h"
#include "harness/scratch_folder.h"
#include "harness/test_size.h"

namespace morvane::test {
namespace {

namespace fs = std::filesystem;
using cli::severity;

/// The files of a network, and how they are named.
struct network {
  std::string mark;   // what headers begin with
  std::string stem;   // what all names begin with
  bool named = true;  // the DAGs as the files
  std::size_t dags = 1;
  std::map<std::string, std::string> files{};  // by their names

  [[nodiscard]] std::string name(std::size_t dag) const {
    return dags == 1 && stem == "net" ? stem : stem + "_split_" + std::to_string(dag);
  }
  [[nodiscard]] std::string image(std::size_t dag) const { return name(dag) + ".dvi"; }
  [[nodiscard]] std::string header(std::size_t dag) const { return mark + name(dag) + ".h"; }
  [[nodiscard]] std::string dag_name(std::size_t dag) const {
    return named ? name(dag) : "part" + std::to_string(dag);
  }
};

/// A port of which every network has some: a tensor with a number.
void add_tensor(header_lines& header, const char* keyword, std::size_t number) {
  const std::string name = "t" + std::to_string(number);
  const std::size_t width = 8 + number % 7;
  const std::map<std::string, std::size_t> values{{"_dbase_byte_offset", 256 * number},
                                                  {"_W", width},
                                                  {"_H", 4},
                                                  {"_D", 2},
                                                  {"_P", 1},
                                                  {"_dpitch_num_bytes", width * 4},
                                                  {"_dram_format", 1},
                                                  {"_dram_size_num_bytes", width * 8},
                                                  {"_sign", 1},
                                                  {"_datasize", 8},
                                                  {"_hflip", 1},
                                                  {"_vflip_bit_offset", 64}};
  add_line(header, "/* " + header.dag + " " + keyword + " " + name + " */");
  for (const auto& [suffix, value] : values) {
    add_line(header, definition(header.dag + "_" + name + suffix, std::to_string(value)));
  }
  add_line(header, definition(header.dag + "_" + name + "_qubrix_demangled_name",
                              "\"" + header.dag + "/" + name + "\""));
}

std::string joined_lines(const header_lines& header) {
  std::string text;
  for (const std::string& line : header.lines) {
    text += line + "\n";
  }
  return text;
}

/// Each DAG reads what the one before it writes, and now and then what an earlier one wrote.
header_lines right_header(const network& net, std::size_t dag, std::size_t size,
                          random_numbers& random) {
  header_lines header{.dag = net.dag_name(dag)};
  const std::size_t start = 0x80000000 + 4096 * dag;
  add_line(header, "#ifndef GUARD");
  add_line(header, "#define GUARD");
  add_line(header, definition(header.dag + "_DAG_NAME", "\"" + header.dag + "\""));
  add_line(header, definition(header.dag + "_use_ping_pong_vmem", "1"));
  add_line(header, definition(header.dag + "_image_start", std::to_string(start)));
  add_line(header, definition(header.dag + "_image_size", std::to_string(size)));
  add_line(header, definition(header.dag + "_dagbin_start", std::to_string(start + size / 2)));
  add_tensor(header, "HMB_input", dag);
  if (dag > 1 && one_in(random, 2)) {
    add_line(header, "");
    add_tensor(header, "HMB_input", below(random, dag));
  }
  add_tensor(header, "HMB_output", dag + 1);
  add_line(header, "#endif");
  return header;
}

/// The DAGs have the names of the files, if these can be parts of macros and it is wanted.
network right_network(random_numbers& random, std::size_t dags, bool named) {
  constexpr std::array stems{"net", "dock_cam", "my_split_net", "dock cam", "Net-2"};
  network net{.mark = one_in(random, 2) ? "_" : "",
              .stem = stems.at(below(random, named ? 3 : stems.size())),
              .named = named,
              .dags = dags};
  const bool sizes_differ = one_in(random, 2);
  for (std::size_t i = 0; i < dags; ++i) {
    const std::size_t size = 64 + (sizes_differ ? 2 * i : 0);
    net.files[net.image(i)] = std::string(size, 'i');
    net.files[net.header(i)] = joined_lines(right_header(net, i, size, random));
  }
  return net;
}

/// A finding that can be kept.
struct told_finding {
  std::string code;
  severity level;
  std::string file;
};

class DailyMistakes : public testing::Test {
 protected:
  /// What lint tells about files, in the default order of the folder.
  [[nodiscard]] std::vector<told_finding> lint(const network& net, bool notes) const {
    fs::remove_all(scratch.path("in"));
    scratch.make_folder("in");
    for (const auto& [name, content] : net.files) {
      if (name.ends_with('/')) {
        scratch.make_folder("in/" + name);
      } else {
        scratch.write("in/" + name, content);
      }
    }
    std::vector<told_finding> told;
    const std::string folder = scratch.path("in");
    const cli::lint_scope scope{.folder = folder, .notes = notes};
    const int error = cli::lint_folder(
        scope,
        [&](const cli::finding& found) {
          const std::string file(found.file.substr(std::min(found.file.size(), folder.size() + 1)));
          if (notes || cli::level_of(found) != severity::note) {
            told.push_back({std::string(found.kind->code), cli::level_of(found), file});
          }
        },
        [](std::size_t, std::size_t) {}, nullptr);
    EXPECT_EQ(error, 0);
    return told;
  }

  scratch_folder scratch{fast_folder()};
};

std::string text_of_all(const std::vector<told_finding>& told) {
  std::string text;
  for (const told_finding& found : told) {
    text += found.file + ": " + found.code + "\n";
  }
  return text;
}

TEST_F(DailyMistakes, AreNotFoundInRightNetworks) {
  random_numbers random(test_seed());
  std::vector<std::size_t> sizes{1, 2, 200};
  for (unsigned i = cases_to_run(40, 4); i > 0; --i) {
    sizes.push_back(1 + below(random, 60));
  }
  for (const std::size_t dags : sizes) {
    const network net = right_network(random, dags, one_in(random, 2));
    EXPECT_EQ(text_of_all(lint(net, true)), "") << dags << " DAGs, " << net.stem;
  }
}

/// A mistake. Makes it in a network, at a DAG that is neither the first nor the last, and returns
/// the file that a finding must have, empty for the folder.
struct daily_mistake {
  const char* name;
  std::string (*make)(network& net, std::size_t dag);
  bool needs_names = false;  // of the DAGs, which must be those of the files
};

std::string taken(network& net, const std::string& name) {
  return net.files.extract(name).mapped();
}

std::string rename_file(network& net, const std::string& from, const std::string& to) {
  net.files[to] = taken(net, from);
  return to;
}

std::string replace_in_header(network& net, std::size_t dag, const std::string& from,
                              const std::string& to) {
  std::string& text = net.files[net.header(dag)];
  const std::size_t place = text.find(from);
  EXPECT_NE(place, std::string::npos) << from;
  text.replace(place, from.size(), to);
  return net.header(dag);
}

/// Renames all pairs.
void rename_all(network& net, const std::function<std::string(std::size_t)>& name) {
  std::map<std::string, std::string> renamed;
  for (std::size_t i = 0; i < net.dags; ++i) {
    renamed[name(i) + ".dvi"] = net.files[net.image(i)];
    renamed[net.mark + name(i) + ".h"] = net.files[net.header(i)];
  }
  net.files = std::move(renamed);
}

const std::vector<daily_mistake> all_mistakes{
    {"two headers exchanged",
     [](network& net, std::size_t dag) {
       std::swap(net.files[net.header(dag)], net.files[net.header(dag + 1)]);
       return net.header(dag);
     },
     true},
    {"all headers moved on by one",
     [](network& net, std::size_t /*dag*/) {
       for (std::size_t i = 0; i + 1 < net.dags; ++i) {
         std::swap(net.files[net.header(i)], net.files[net.header(i + 1)]);
       }
       return net.header(0);
     },
     true},
    {"an earlier header again",
     [](network& net, std::size_t dag) {
       net.files[net.header(dag)] = net.files[net.header(dag - 1)];
       return net.header(dag);
     }},
    {"a later header already",
     [](network& net, std::size_t dag) {
       net.files[net.header(dag)] = net.files[net.header(dag + 1)];
       return net.header(dag);
     },
     true},
    {"a header missing",
     [](network& net, std::size_t dag) {
       net.files.erase(net.header(dag));
       return net.header(dag);
     }},
    {"the first header missing",
     [](network& net, std::size_t /*dag*/) {
       net.files.erase(net.header(0));
       return net.header(0);
     }},
    {"all headers missing",
     [](network& net, std::size_t /*dag*/) {
       std::erase_if(net.files, [](const auto& file) { return file.first.ends_with(".h"); });
       return net.image(0);
     }},
    {"a header renamed",
     [](network& net, std::size_t dag) {
       rename_file(net, net.header(dag), net.mark + "part.h");
       return net.header(dag);
     }},
    {"a header with a capital ending",
     [](network& net, std::size_t dag) {
       return rename_file(net, net.header(dag), net.mark + net.name(dag) + ".H");
     }},
    {"a header with another beginning",
     [](network& net, std::size_t dag) {
       const std::string other = net.mark.empty() ? "_" : "";
       return rename_file(net, net.header(dag), other + net.name(dag) + ".h");
     }},
    {"only the backup of a header",
     [](network& net, std::size_t dag) {
       return rename_file(net, net.header(dag), net.header(dag) + "~");
     }},
    {"a header in a folder of its name",
     [](network& net, std::size_t dag) {
       return rename_file(net, net.header(dag), net.header(dag) + "/")
           .substr(0, net.header(dag).size());
     }},
    {"an image missing",
     [](network& net, std::size_t dag) {
       net.files.erase(net.image(dag));
       return net.image(dag);
     }},
    {"the last image missing",
     [](network& net, std::size_t /*dag*/) {
       net.files.erase(net.image(net.dags - 1));
       return net.header(net.dags - 1);
     }},
    {"an image and its header missing",
     [](network& net, std::size_t dag) {
       net.files.erase(net.header(dag));
       net.files.erase(net.image(dag));
       return net.image(dag);
     }},
    {"an image renamed",
     [](network& net, std::size_t dag) { return rename_file(net, net.image(dag), "part.dvi"); }},
    {"an image without an index",
     [](network& net, std::size_t dag) {
       return rename_file(net, net.image(dag), net.name(dag) + "_new.dvi");
     }},
    {"an image under a second name",
     [](network& net, std::size_t dag) {
       const std::string copy = "copy_of_" + net.image(dag);
       net.files[copy] = net.files[net.image(dag)];
       return copy;
     }},
    {"an image and its header under a second name",
     [](network& net, std::size_t dag) {
       const std::string copy = "copy_of_" + net.name(dag);
       net.files[net.mark + copy + ".h"] = net.files[net.header(dag)];
       net.files[copy + ".dvi"] = net.files[net.image(dag)];
       return copy + ".dvi";
     }},
    {"two images of one index",
     [](network& net, std::size_t dag) {
       const std::string name = "other_name_of_it_split_" + std::to_string(dag);
       rename_file(net, net.header(dag + 1), net.mark + name + ".h");
       return rename_file(net, net.image(dag + 1), name + ".dvi");
     }},
    {"names without indices",
     [](network& net, std::size_t /*dag*/) {
       rename_all(net, [](std::size_t i) { return "part" + std::to_string(i); });
       return std::string();
     }},
    {"indices from 1",
     [](network& net, std::size_t /*dag*/) {
       rename_all(net, [&](std::size_t i) { return net.name(i + 1); });
       return net.image(0);
     }},
    {"files of an older network",
     [](network& net, std::size_t /*dag*/) {
       for (std::size_t i = 0; i < 3; ++i) {
         const std::string name = "an_older_network_split_" + std::to_string(i);
         net.files[name + ".dvi"] = net.files[net.image(i)];
         net.files[net.mark + name + ".h"] = "#define old" + std::to_string(i) + "_DAG_NAME \"old" +
                                             std::to_string(i) + "\"\n#define old" +
                                             std::to_string(i) + "_image_size " +
                                             std::to_string(net.files[net.image(i)].size()) + "\n";
       }
       return std::string("an_older_network_split_0.dvi");
     }},
    {"a hidden leftover",
     [](network& net, std::size_t dag) {
       net.files["._" + net.image(dag)] = "leftover";
       net.files["._" + net.header(dag)] = "leftover";
       return "._" + net.image(dag);
     }},
    {"a folder with the name of an image",
     [](network& net, std::size_t /*dag*/) {
       net.files["debug.dvi/"] = "";
       return std::string("debug.dvi");
     }},
    {"half an image",
     [](network& net, std::size_t dag) {
       net.files[net.image(dag)].resize(net.files[net.image(dag)].size() / 2);
       return net.header(dag);
     }},
    {"an image of 0 bytes",
     [](network& net, std::size_t dag) {
       net.files[net.image(dag)].clear();
       return net.header(dag);
     }},
    {"a longer image",
     [](network& net, std::size_t dag) {
       net.files[net.image(dag)] += "more";
       return net.header(dag);
     }},
    {"an empty header",
     [](network& net, std::size_t dag) {
       net.files[net.header(dag)].clear();
       return net.header(dag);
     }},
    {"a hexadecimal size",
     [](network& net, std::size_t dag) {
       return replace_in_header(net, dag, "_image_size ", "_image_size 0x");
     }},
    {"no size",
     [](network& net, std::size_t dag) {
       return replace_in_header(net, dag, "_image_size ", "_img_bytes ");
     }},
    {"no name of the DAG",
     [](network& net, std::size_t dag) {
       return replace_in_header(net, dag, "_DAG_NAME ", "_DAG ");
     }},
    {"a hexadecimal offset",
     [](network& net, std::size_t dag) {
       return replace_in_header(net, dag, "_dbase_byte_offset ", "_dbase_byte_offset 0x");
     }},
    {"a macro misspelled",
     [](network& net, std::size_t dag) {
       return replace_in_header(net, dag, "_datasize ", "_datsize ");
     }},
    {"another shape than the output has",
     [](network& net, std::size_t dag) { return replace_in_header(net, dag, "_H 4", "_H 5"); }},
};

/// Whether a finding of the mistake is at its place, and only few are elsewhere.
bool is_told(const std::vector<told_finding>& told, const std::string& place) {
  constexpr std::size_t most = 3;
  return told.size() <= most && std::ranges::find(told, place, &told_finding::file) != told.end();
}

TEST_F(DailyMistakes, AreToldInFewLinesAtTheirPlace) {
  random_numbers random(test_seed());
  const unsigned cases = cases_to_run(8, 1);
  for (const daily_mistake& mistake : all_mistakes) {
    for (unsigned i = cases; i > 0; --i) {
      network net =
          right_network(random, 4 + below(random, 20), mistake.needs_names || one_in(random, 2));
      const std::size_t dag = 1 + below(random, net.dags - 3);
      const std::string place = mistake.make(net, dag);
      const std::vector<told_finding> told = lint(net, false);
      EXPECT_TRUE(is_told(told, place)) << mistake.name << " in " << net.header(dag) << " of "
                                        << net.dags << ", wanted at \"" << place << "\":\n"
                                        << text_of_all(told);
    }
  }
}

// Every file is created in another order, on file systems that list them in other orders.
TEST_F(DailyMistakes, AreToldInTheSameOrderWhateverTheFolderIsLike) {
  random_numbers random(test_seed());
  network net = right_network(random, 12, true);
  for (const char* name :
       {"._a.dvi", "._b.dvi", "c_split_.dvi", "d_split_.dvi", "older_split_3.dvi"}) {
    net.files[name] = "leftover";
  }
  net.files.erase(net.header(3));
  net.files.erase(net.header(7));
  std::vector<std::pair<std::string, std::string>> files(net.files.begin(), net.files.end());
  std::string first;
  for (unsigned turn = 0; turn < 12; ++turn) {
    const scratch_folder other(turn % 2 == 0 ? fast_folder() : fs::temp_directory_path());
    for (const auto& [name, content] : files) {
      other.write("in/" + name, content);
    }
    const run_result run = run_morvane({"lint", "in", "--notes", "--all"}, other.path());
    EXPECT_EQ(run.status, 1);
    first = first.empty() ? run.output : first;
    EXPECT_EQ(run.output, first);
    std::ranges::shuffle(files, random);
  }
}

}  // namespace
}  // namespace morvane::test
