// What morvane lint says about values that the pack run reads in another way than C.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

using namespace std::literals;

class LintValues : public linted_folder {};

TEST_F(LintValues, FindsANumberThatIsNotDecimal) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 0x1000\n"
               "#define net_data_H 010\n"
               "#define net_data_D (3)\n"
               "#define net_data_P ROWS\n");
  expect_findings(
      0,
      "in/net.h:4:20: warning: 0x1000 is not decimal: net_data_W becomes 0 [not-decimal]\n"
      "in/net.h:5:20: warning: 010 is octal for C, 8: net_data_H becomes 10 [not-decimal]\n"
      "in/net.h:6:20: warning: (3) is not decimal: net_data_D becomes 0 [not-decimal]\n"
      "in/net.h:7:20: warning: ROWS is not decimal: net_data_P becomes 0 [not-decimal]\n");
}

TEST_F(LintValues, FindsANumberWithTextBehindIt) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 12abc\n"
               "#define net_data_H 1<<3\n");
  expect_findings(0,
                  "in/net.h:4:20: warning: only 12 of 12abc is read: net_data_W becomes 12 "
                  "[trailing-text]\n"
                  "in/net.h:5:20: warning: only 1 of 1<<3 is read: net_data_H becomes 1 "
                  "[trailing-text]\n");
}

TEST_F(LintValues, FindsANumberThatDoesNotFit) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 4294967301\n"
               "#define net_data_sign 300\n"
               "#define net_data_expoffset 128\n"
               "#define net_data_hflip 2\n"
               "#define net_data_H -1\n"
               "#define net_data_D 18446744073709551621\n");
  expect_findings(0,
                  "in/net.h:4:20: warning: 4294967301 does not fit into 32 bits without a sign: "
                  "net_data_W becomes 5 [out-of-range]\n"
                  "in/net.h:5:23: warning: 300 does not fit into 8 bits without a sign: "
                  "net_data_sign becomes 44 [out-of-range]\n"
                  "in/net.h:6:28: warning: 128 does not fit into 8 bits with a sign: "
                  "net_data_expoffset becomes -128 [out-of-range]\n"
                  "in/net.h:7:24: warning: 2 does not fit into 1 bit: net_data_hflip becomes 0 "
                  "[out-of-range]\n"
                  "in/net.h:8:20: warning: -1 does not fit into 32 bits without a sign: net_data_H "
                  "becomes 4294967295 [out-of-range]\n"
                  "in/net.h:9:20: warning: 18446744073709551621 does not fit into 32 bits without "
                  "a sign: net_data_D becomes 4294967295 [out-of-range]\n");
}

TEST_F(LintValues, FindsANumberInQuotes) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W \"40\"\n");
  expect_findings(
      0,
      "in/net.h:4:21: warning: \"40\" is a text for C, not a number: net_data_W becomes "
      "40 [quoted-number]\n");
}

TEST_F(LintValues, FindsAMacroWithoutAValue) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W\n"
               "#define net_data_H /* rows: */\n");
  expect_findings(0,
                  "in/net.h:4:9: warning: net_data_W has no value: it stays 0 [no-value]\n"
                  "in/net.h:5:23: warning: net_data_H has no value, so \"rows\" behind it is read: "
                  "net_data_H becomes 0 [no-value]\n");
}

TEST_F(LintValues, FindsAMacroThatStaysAsItWas) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 4\n"
               "#define net_data_W\n"
               "#define net_data_H ,;\n"
               "#define net_data_qubrix_demangled_name \"a\"\n"
               "#define net_data_qubrix_demangled_name \"\"\n"
               "/* net HMB_input mel */\n"
               "#define net_mel_qubrix_demangled_name \"\"\n");  // as without the macro
  expect_findings(
      0,
      "in/net.h:5:9: warning: net_data_W has no value: it stays 4 [no-value]\n"
      "in/net.h:6:9: warning: the value of net_data_H, ,;, holds only separators: it is not read "
      "[no-value]\n"
      "in/net.h:8:9: warning: net_data_qubrix_demangled_name is empty here, but stays \"a\" "
      "[no-value]\n");
}

TEST_F(LintValues, FindsAValueWithACommentInside) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40 /* and */ + 2\n");
  expect_findings(0,
                  "in/net.h:4:20: warning: the value \"40 + 2\" is cut at a separator: net_data_W "
                  "becomes 40 [cut-name]\n");
}

TEST_F(LintValues, FindsAValueThatGoesOnAfterASeparator) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data:0 */\n"
               "#define net_data_qubrix_demangled_name \"a b\"\n"
               "#define net_data_W 2 * 20\n");
  expect_findings(0,
                  "in/net.h:3:18: warning: the name data:0 is cut at a separator: input data is "
                  "packed [cut-name]\n"
                  "in/net.h:4:41: warning: the value \"a b\" is cut at a separator: "
                  "net_data_qubrix_demangled_name becomes \"a\" [cut-name]\n"
                  "in/net.h:5:20: warning: the value \"2 * 20\" is cut at a separator: net_data_W "
                  "becomes 2 [cut-name]\n");
}

TEST_F(LintValues, FindsABackslashInAText) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_qubrix_demangled_name \"a\\\\b\"\n");
  expect_findings(0,
                  "in/net.h:4:41: warning: the backslash in \"a\\\\b\" is read as a letter: "
                  "net_data_qubrix_demangled_name becomes \"a\\\\b\" [escape-sequence]\n");
}

TEST_F(LintValues, FindsANameThatIsAMacro) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define layer \"a/b\"\n"
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_qubrix_demangled_name layer\n");
  expect_findings(0,
                  "in/net.h:5:40: warning: layer is itself a macro, which is not resolved: "
                  "net_data_qubrix_demangled_name becomes \"layer\" [macro-as-value]\n");
}

TEST_F(LintValues, FindsANameWithACarriageReturn) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "// net HMB_input data\r\n"
               "#define net_data_W 40\r\n");
  expect_findings(0,
                  "in/net.h:3:18: warning: the line ends in a carriage return, which becomes part "
                  "of the name: input data\\x0d [carriage-return]\n"
                  "in/net.h:4:9: warning: net_data_W is not read: the block above it is that of "
                  "input data\\x0d, whose macro is net_data\\x0d_W [wrong-name]\n");
}

TEST_F(LintValues, FindsALineWithANulByte) {
  folder.write("in/net.dvi", "image");
  folder.write("in/net.h",
               "#define net_DAG_NAME \"net\"\n"
               "#define net_image_size 5\n"
               "/* net HMB_input data */\n"
               "#define net_data_W 40\000\n"sv);
  expect_findings(0,
                  "in/net.h:4:22: warning: a byte of the line is 0: no value behind it is read "
                  "[nul-byte]\n");
}

}  // namespace
}  // namespace morvane::test
