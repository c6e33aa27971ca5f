#include "headers/length_check.h"

#include "io/message.h"

namespace morvane {

int check_length_limit(std::string_view text, const length_limit& limit) {
  if (text.size() <= limit.longest) {
    return 0;
  }
  print_line("error: please increase length limit of MACRO [", limit.name, "] for string \"", text,
             "\" with length [", text.size(), "]");
  return -1;
}

}  // namespace morvane
