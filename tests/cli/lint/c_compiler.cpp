#include "cli/lint/c_compiler.h"

#include <algorithm>
#include <set>

#include "harness/run_tool.h"

namespace morvane::test {

namespace {

/// The names of all macros that a header may define.
std::set<std::string> defined_names(const std::string& text) {
  constexpr std::string_view in_names =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  std::set<std::string> names;
  for (std::size_t at = text.find("define "); at != std::string::npos;
       at = text.find("define ", at + 1)) {
    const std::size_t begin = at + 7;
    const std::size_t end = std::min(text.find_first_not_of(in_names, begin), text.size());
    if (end > begin) {
      names.insert(text.substr(begin, end - begin));
    }
  }
  return names;
}

/// One word of the answer for each line that the preprocessor leaves.
std::string question(const packed_macro& macro) {
  std::string text = "@ask\n#ifdef " + macro.name + "\n@value " + macro.name + "\n";
  if (!macro.is_text) {
    text += "#if (" + macro.name + ") == " + macro.value + "\n@same\n#endif\n";
  }
  return text + "#endif\n@done\n";
}

/// The text without white space at its begin and its end.
std::string_view trimmed(std::string_view text) {
  constexpr std::string_view white = " \n";
  const std::size_t begin = std::min(text.find_first_not_of(white), text.size());
  return text.substr(begin, text.find_last_not_of(white) + 1 - begin);
}

c_answer judge(const packed_macro& macro, std::string_view reply) {
  const std::size_t value = reply.find("@value");
  if (value == std::string::npos) {
    return c_answer::no_macro;
  }
  const std::size_t same = reply.find("@same");
  const std::string_view text = trimmed(reply.substr(value + 6, same - (value + 6)));
  if (macro.is_text) {
    const bool is_quoted = text.starts_with('"') && text.ends_with('"') && text.size() > 1;
    const bool is_same =
        text == macro.value || (is_quoted && text.substr(1, text.size() - 2) == macro.value);
    return is_same ? c_answer::same : c_answer::other;
  }
  // The preprocessor takes a name that is no macro for 0; for C it is no number.
  const bool is_number =
      text.find_first_not_of("-+() 0123456789abcdefABCDEFxXuUlL") == std::string::npos;
  return same != std::string::npos && is_number ? c_answer::same : c_answer::other;
}

}  // namespace

std::vector<c_answer> ask_compiler(const std::vector<packed_macro>& macros,
                                   const scratch_folder& scratch) {
  std::string source;
  for (std::size_t i = 0; i < macros.size();) {
    const std::string& header = macros[i].header;
    source += "#include \"" + header + "\"\n";
    for (; i < macros.size() && macros[i].header == header; ++i) {
      source += question(macros[i]);
    }
    for (const std::string& name : defined_names(scratch.read(header))) {
      source += "#undef " + name + "\n";
    }
  }
  scratch.write("all.c", source);
  const run_result run = run_program({"cc", "-E", "-P", "-w", "all.c"}, scratch.path());
  std::vector<c_answer> answers;
  std::size_t at = 0;
  for (const packed_macro& macro : macros) {
    at = run.output.find("@ask\n", at);
    const std::size_t end = run.output.find("@done\n", at);
    answers.push_back(at == std::string::npos
                          ? c_answer::other
                          : judge(macro, std::string_view(run.output).substr(at, end - at)));
    at = end;
  }
  return answers;
}

bool has_compiler() {
  return run_program({"sh", "-c", "command -v cc"}, "/").status == 0;
}

}  // namespace morvane::test
