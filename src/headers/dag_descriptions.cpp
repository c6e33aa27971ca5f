#include "headers/dag_descriptions.h"

#include "io/file.h"

namespace morvane {

counted_port find_counted_port(std::string_view line) {
  counted_port port;
  for (const port_class* ports_class : {&input_ports, &output_ports}) {
    if (find_macro_value(line, ports_class->keyword, port.name, macro_delimiters) != no_value) {
      port.ports_class = ports_class;
      break;
    }
  }
  return port;
}

void complete_dag_description(dvi_desc& dvi, std::int32_t index, std::size_t position) {
  dvi.dvi_id = static_cast<std::uint8_t>(index);
  dvi.vproc_id = static_cast<std::uint8_t>(position);
  dvi.dvi_pkg_size = dvi.dvi_img_size + static_cast<std::uint32_t>(sizeof(port_desc)) *
                                            (dvi.input_num + dvi.output_num);
}

int parse_dag_description(dvi_desc& dvi, std::string_view header, std::int32_t index,
                          std::size_t position) {
  dvi = {};
  const no_observer nobody;
  if (read_dag_fields(dvi, header, nobody) != 0) {
    return -1;
  }
  complete_dag_description(dvi, index, position);
  return 0;
}

int parse_dag_descriptions(std::vector<dvi_desc>& dvis, const std::string& folder,
                           const input_list& headers) {
  for (std::size_t position = 0; position < headers.size(); ++position) {
    dvi_desc dvi{};
    const std::string header = read_file(join_path(folder, headers[position].name)).text;
    if (parse_dag_description(dvi, header, headers[position].index, position) != 0) {
      return -1;
    }
    dvis.push_back(dvi);
  }
  return 0;
}

}  // namespace morvane
