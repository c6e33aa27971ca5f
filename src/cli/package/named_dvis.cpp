#include "cli/package/named_dvis.h"

#include "cli/output/printable_text.h"

namespace morvane::cli {

int report_missing_names(const opened_package& package, const std::vector<std::string>& dag_names) {
  std::unordered_set<std::string_view> present;
  if (!dag_names.empty()) {
    for_each_dvi(package.view,
                 [&](const morvane_view_dvi& dvi) { present.insert(str(dvi.dag_name)); });
  }
  int status = status_fine;
  for (const std::string& name : dag_names) {
    if (!present.contains(name)) {
      print_message(joined(printable(package.path), ": no DVI has the name ", in_quotes(name)));
      status = status_failed;
    }
  }
  return status;
}

}  // namespace morvane::cli
