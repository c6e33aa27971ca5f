// What the parsers tell while they read a header.
#include "headers/reading_observer.h"

#include <gtest/gtest.h>

#include <string>

#include "headers/dag_descriptions.h"
#include "headers/port_descriptions.h"
#include "headers/vproc_descriptions.h"
#include "io/message.h"

namespace morvane {
namespace {

/// Writes down what it is told.
struct story {
  std::string text{};

  void add(std::string_view what, std::string_view about) {
    text.append(what).append(" ").append(about).append("\n");
  }
  void name_dag(std::string_view name) { add("DAG", name); }
  void count_port(std::string_view name, const port_class& ports_class) {
    add(ports_class.direction, name);
  }
  void count_variable(std::string_view name) { add("variable", name); }
  void count_smb(std::string_view name) { add("SMB", name); }
  void begin_block(std::string_view name) { add("block", name); }
  void read_line(std::string_view line, const macro_match& match) {
    add(match.row == nullptr ? "nothing" : match.row->suffix,
        match.row == nullptr ? line : match.value);
  }
  void end_block(std::string_view line) { add("end", line.substr(0, line.find('\n'))); }
};

constexpr std::string_view told_header =
    "/* HMB_input early */\n"
    "#define net_DAG_NAME \"net\"\n"
    "/* $gain SMB_input window */\n"
    "#define net_image_size 5\n"
    "/* net HMB_input data */\n"
    "#define net_data_W 40\n"
    "\n"
    "#define net_data_rows 49\n"
    "/* net HMB_output mask SMB_input filter */\n"
    "#define net_mask_H 7";

TEST(ReadingObserver, IsToldHowADagIsRead) {
  story told;
  dvi_desc dvi{};
  EXPECT_EQ(read_dag_fields(dvi, told_header, told), 0);
  EXPECT_EQ(told.text,
            "DAG net\n"
            "nothing /* $gain SMB_input window */\n"
            "_image_size 5\n"
            "input data\n"
            "nothing #define net_data_W 40\n"
            "nothing #define net_data_rows 49\n"
            "output mask\n"
            "nothing #define net_mask_H 7\n");
}

TEST(ReadingObserver, IsToldHowBlocksAreRead) {
  story told;
  std::vector<port_desc> ports;
  EXPECT_EQ(read_blocks(told_header, port_blocks(input_ports), empty_port(), ports, told), 0);
  EXPECT_EQ(told.text,
            "block early\n"
            "end #define net_DAG_NAME \"net\"\n"
            "block data\n"
            "_W 40\n"
            "nothing #define net_data_rows 49\n"
            "end /* net HMB_output mask SMB_input filter */\n");
  story of_output;
  EXPECT_EQ(read_blocks(told_header, port_blocks(output_ports), empty_port(), ports, of_output), 0);
  EXPECT_EQ(of_output.text, "block mask\n_H 7\nend \n");
}

TEST(ReadingObserver, IsToldWhatCountsAsAVariableAndAsAnSmb) {
  story told;
  const vproc_desc vproc = count_vproc_records(told_header, told);
  EXPECT_EQ(told.text, "variable gain\nSMB filter\n");
  EXPECT_EQ(vproc.variable_num, 1U);
  EXPECT_EQ(vproc.smb_num, 1U);
}

TEST(ReadingObserver, IsToldOfTheBlockWhoseNameIsTooLong) {
  story told;
  std::vector<port_desc> ports;
  const std::string name(512, 'n');
  const collected_messages forgotten(false);
  EXPECT_EQ(read_blocks("HMB_input " + name, port_blocks(input_ports), empty_port(), ports, told),
            -1);
  EXPECT_EQ(told.text, "block " + name + "\n");
}

}  // namespace
}  // namespace morvane
