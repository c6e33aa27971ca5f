// Which records the lines of a header give: DAGs, variables and SMBs.
#include "end_to_end/tool_test.h"

namespace morvane::test {
namespace {

/// Packs one DVI with vproc records. Returns the bytes after its record: it has no ports and no
/// image.
std::string packed_vproc(std::string_view header) {
  return packed(header, "", pack_with_vproc).substr(156);
}

TEST(DagDescription, IsReadFromItsMacros) {
  expect_bytes(packed("#define net_DAG_NAME \"net\"\n"
                      "#define net_use_ping_pong_vmem 257 /* cut to 8 bits */\n"
                      "#define net_image_start 4294967298 /* cut to 32 bits */\n"
                      "#define net_image_size 5\n"
                      "#define net_dagbin_start -2\n",
                      "image"),
               dvi_record({.ppv = 1,
                           .img_vaddr = 2,
                           .img_size = 5,
                           .dag_vaddr = 0xFFFFFFFE,
                           .pkg_size = 5,
                           .dag_name = "net"}) +
                   "image");
}

TEST(DagDescription, CountsLinesThatNamePorts) {
  expect_bytes(packed("#define dag0_DAG_NAME dag0\n"
                      "/* dag0 HMB_input a */\n"
                      "/* dag0 HMB_input b */\n"
                      "/* dag0 HMB_output c */\n"
                      "/* HMB_input */\n"
                      "#define dag0_image_size 4096\n",
                      std::string(4096, 'i'))
                   .substr(0, 156),
               dvi_record({.img_size = 4096,
                           .input_num = 2,
                           .output_num = 1,
                           .pkg_size = 7336,
                           .dag_name = "dag0"}));
}

TEST(DagDescription, IgnoresWhatStandsBeforeTheName) {
  expect_bytes(packed("#define net_image_size 5\n"
                      "/* HMB_input early */\n"
                      "#define net_DAG_NAME net\n"
                      "#define net_image_start 7\n")
                   .substr(0, 156),
               dvi_record({.img_vaddr = 7, .dag_name = "net"}));
}

TEST(DagDescription, KeepsTheFirstNameAndTheLastValues) {
  expect_bytes(packed("#define net_DAG_NAME net\n"
                      "#define other_DAG_NAME other\n"
                      "#define other_image_start 3\n"
                      "#define net_image_start 1\n"
                      "#define net_image_start 2\n"),
               dvi_record({.img_vaddr = 2, .dag_name = "net"}));
}

TEST(DagDescription, TakesALineForOnePortOrOneMacroOrItsName) {
  expect_bytes(packed("#define net_DAG_NAME\n"
                      "#define net_DAG_NAME net HMB_input x net_image_start 9\n"
                      "/*old_net_dagbin_start 3*/\n"
                      "net_dagbin_start 9 net_image_size 5\n"
                      "net_image_size 9 net_image_start 2\n"
                      "net_image_start 9 net_use_ping_pong_vmem 1\n"
                      "HMB_output a HMB_input b\n"         // an input
                      "HMB_output a HMB_input\n"           // an output
                      "HMB_input_0 net_image_start 9\n"    // an input
                      "HMB_output a net_image_start 9\n",  // an output
                      "image")
                   .substr(0, 156),
               dvi_record({.ppv = 1,
                           .img_vaddr = 2,
                           .img_size = 5,
                           .dag_vaddr = 3,
                           .input_num = 2,
                           .output_num = 2,
                           .pkg_size = 4325,
                           .dag_name = "net"}));
}

TEST(DagDescription, ReadsNumbersAsDecimalOnly) {
  expect_bytes(packed("#define net_DAG_NAME net\n"
                      "#define net_image_start 0x1000\n"
                      "#define net_dagbin_start +12abc\n"
                      "#define net_image_size many\n"),
               dvi_record({.dag_vaddr = 12, .dag_name = "net"}));
  expect_bytes(packed("#define net_DAG_NAME net\n"
                      "#define net_image_start 99999999999999999999\n"
                      "#define net_dagbin_start -99999999999999999999\n"),
               dvi_record({.img_vaddr = 0xFFFFFFFF, .dag_vaddr = 0, .dag_name = "net"}));
}

TEST(DagDescription, FindsItsKeysAnywhereOnALine) {
  expect_bytes(packed("see S_DAG_NAMES q\n"
                      "#define S_image_starting 5\n"
                      "xS_dagbin_start=6\n"),
               dvi_record({.dag_vaddr = 6, .dag_name = "S"}));
}

TEST(DagDescription, OfAHeaderWithoutNameIsEmpty) {
  expect_bytes(packed("#define net_DAG_NAME\n#define net_dag_name net\n#define _image_size 5\n"),
               dvi_record({}));
}

TEST(DagDescription, OfACrLfHeaderKeepsTheCarriageReturnOfAnUnquotedName) {
  expect_bytes(packed("#define net_DAG_NAME net\r\n#define net_image_start 7\r\n"),
               dvi_record({.dag_name = "net\r"}));
  expect_bytes(packed("#define net_DAG_NAME \"net\"\r\n#define net_image_start 7\r\n"),
               dvi_record({.img_vaddr = 7, .dag_name = "net"}));
  expect_bytes(packed("#define net_DAG_NAME net /**/\r\n#define net_image_start \r7\r\n"),
               dvi_record({.img_vaddr = 7, .dag_name = "net"}));
}

TEST(DagDescription, TakesHighBytesAndEndsALineAtANul) {
  const std::string nul(1, '\0');
  expect_bytes(packed("#define n_DAG_NAME n\xC3\xA9t\xFF\n#define n\xC3\xA9t\xFF_image_start 7\n"),
               dvi_record({.img_vaddr = 7, .dag_name = "n\xC3\xA9t\xFF"}));
  expect_bytes(packed("#define net_DAG_NAME net" + nul + "work\n" +  //
                      "#define net_image_start " + nul + " 7\n" +    //
                      "#define net_dagbin_start 1" + nul + "2\n" +   //
                      nul + " #define net_use_ping_pong_vmem 1\n"),
               dvi_record({.dag_vaddr = 1, .dag_name = "net"}));
}

TEST(VprocDescription, CountsVariablesAndSmbs) {
  expect_bytes(packed_vproc("#define net_DAG_NAME net\n"
                            "/* $a */\n/* SMB_input s */\n/* $b */\n/* SMB_input t */\n"
                            "/* SMB_input u */\n"),
               vproc_record(2, 3, 668) + variable_record("a", 0, 0) + variable_record("b", 0, 0) +
                   smb_record("s", 0) + smb_record("t", 0) + smb_record("u", 0));
}

TEST(VprocDescription, ALineWithBothIsCountedAsAVariableOnly) {
  expect_bytes(packed_vproc("/* SMB_input s $x */\n"),
               vproc_record(1, 0, 136) + variable_record("x", 0, 0) + smb_record("s", 0));
}

TEST(VprocDescription, KeywordsWithNothingAfterThemAreNotCounted) {
  expect_bytes(packed_vproc("/* $ */\n/* SMB_input */\n"), no_vproc);
  expect_bytes(packed_vproc("/* SMB_input s $ */\n"), vproc_record(0, 1, 132) + smb_record("s", 0));
}

TEST(VprocDescription, NamesAreOfAnyBytesUpToANul) {
  const std::string nul(1, '\0');
  expect_bytes(
      packed_vproc("$\xC3\xA9\xFF\n\xC3\xA9\xFF_bsize 1\n"
                   "$a\r\na_bsize 9\r\n"
                   "SMB_input aa\nnet_aa_x aaa_vbase_byte_offset 2\n"
                   "x" +
                   nul + "SMB_input b" + nul + "c\nnet_b_vbase_byte_offset 3" + nul + "4\n" +  //
                   nul + "SMB_input blank\n" +                                                 //
                   "SMB_input d\r\nnet_d_vbase_byte_offset 9\r\n"),
      vproc_record(2, 3, 668) + variable_record("\xC3\xA9\xFF", 0, 1) +
          variable_record("a\r", 0, 0) + smb_record("aa", 2) + smb_record("b", 3) +
          smb_record("d\r", 0));
}

TEST(VariableDescription, IsReadFromItsMacros) {
  expect_bytes(packed_vproc("/* $x */\n"
                            "\n"
                            "#define x_boffset 3\n"
                            "#define net_x_other_x_bsize 9\n"
                            "#define x_bsize 12abc\n"
                            "/* $y */\n"
                            "#define y_bsize 0x10\n"
                            "#define y_boffset 4294967297\n"),
               vproc_record(2, 0, 272) + variable_record("x", 3, 12) + variable_record("y", 1, 0));
}

TEST(VariableDescription, EndsAtALineWithoutItsNameOrWithADollar) {
  expect_bytes(packed_vproc("/* $x */\n"
                            "#define other_bsize 1\n"
                            "#define x_bsize 2\n"
                            "/* $y */\n"
                            "#define y_boffset 3 $z\n"
                            "#define y_bsize 4\n"),
               vproc_record(3, 0, 408) + variable_record("x", 0, 0) + variable_record("y", 0, 0) +
                   variable_record("z", 0, 0));
}

TEST(VariableDescription, TakesOneMacroOfALineAndTheLaterOfTwo) {
  expect_bytes(packed_vproc("$x\nx_bsize 9 x_boffset 2\n"
                            "$y\ny_bsize 9\ny_bsize -1\nheavy_boffset 3\n"
                            "$z\n#define zb 1\nz_bsize 9\n"
                            "$w\nw_boffset 1\nw_ $\nw_bsize 9\n"),
               vproc_record(4, 0, 544) + variable_record("x", 2, 0) +
                   variable_record("y", 3, 0xFFFFFFFF) + variable_record("z", 0, 0) +
                   variable_record("w", 1, 0));
}

TEST(VariableDescription, TakesMacrosOfOthersThatHoldItsMarker) {
  expect_bytes(packed_vproc("/* $w */\n"
                            "#define net_w_vbase_byte_offset 5\n"
                            "#define w_boffset 6\n"),
               vproc_record(1, 0, 136) + variable_record("w", 6, 0));
}

TEST(SmbDescription, IsReadFromItsMacro) {
  expect_bytes(packed_vproc("/* net SMB_input s */\n"
                            "#define net_s_other 1\n"
                            "\n"
                            "#define net_s_vbase_byte_offset 4294967295\n"
                            "/* net SMB_input t */\n"
                            "#define net_t_vbase_byte_offset 0x20\n"),
               vproc_record(0, 2, 264) + smb_record("s", 0xFFFFFFFF) + smb_record("t", 0));
}

TEST(SmbDescription, EndsAtALineWithoutItsMarker) {
  expect_bytes(packed_vproc("/* net SMB_input s */\n"
                            "s_vbase_byte_offset 5\n"
                            "#define net_s_vbase_byte_offset 6\n"),
               vproc_record(0, 1, 132) + smb_record("s", 0));
}

}  // namespace
}  // namespace morvane::test
