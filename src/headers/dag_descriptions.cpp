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

int parse_dag_descriptions(std::vector<dvi_desc>& dvis, const std::string& folder,
                           const input_list& headers) {
  const no_observer nobody;
  for (std::size_t position = 0; position < headers.size(); ++position) {
    dvi_desc dvi{};
    const std::string header = read_file(join_path(folder, headers[position].name)).text;
    if (read_dag_fields(dvi, header, nobody) != 0) {
      return -1;
    }
    complete_dag_description(dvi, headers[position].index, position);
    dvis.push_back(dvi);
  }
  return 0;
}

}  // namespace morvane
