#include "headers/length_check.h"

#include "io/message.h"

namespace morvane {

int report_length_limit(std::string_view text, std::string_view limit_name) {
  print_line("error: please increase length limit of MACRO [", limit_name, "] for string \"", text,
             "\" with length [", text.size(), "]");
  return -1;
}

int check_length_limit(std::string_view text, const length_limit& limit) {
  return text.size() <= limit.longest ? 0 : report_length_limit(text, limit.name);
}

}  // namespace morvane
