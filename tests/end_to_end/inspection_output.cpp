#include "end_to_end/inspection_output.h"

namespace morvane::test {

std::string table_line(const dvi_fields& dvi) {
  const auto field = [](const char* label, std::uint32_t value) {
    return label + std::to_string(value) + "\t ";
  };
  return field("dvi_id: ", dvi.dvi_id) + field("dvi_img_vaddr: ", dvi.img_vaddr) +
         field("dvi_img_size: ", dvi.img_size) + field("dvi_dag_vaddr: ", dvi.dag_vaddr) +
         field("input_num: ", dvi.input_num) + field("output_num: ", dvi.output_num) +
         field("dvi_pkg_size: ", dvi.pkg_size) + field("dvi_ppv: ", dvi.ppv) +
         field("vproc_id: ", dvi.vproc_id) + "dag_name: " + std::string(dvi.dag_name) + "\n";
}

std::string heading(const dvi_fields& dvi) {
  return "dvi_id: " + std::to_string(dvi.dvi_id) + " dag_name: " + std::string(dvi.dag_name) +
         " input_num: " + std::to_string(dvi.input_num) +
         " output_num: " + std::to_string(dvi.output_num) + "\n";
}

std::string first_line(std::size_t dvi_num) {
  return "version 2.1.6 ( HASH b3b3814 ) dvi_num: " + std::to_string(dvi_num) + "\n";
}

std::string report_begin(const std::vector<dvi_fields>& dvis) {
  std::string table;
  std::string headings;
  for (const dvi_fields& dvi : dvis) {
    table += table_line(dvi);
    headings += heading(dvi) + "\n";
  }
  return first_line(dvis.size()) + "\n" + table + "\n" + headings;
}

std::string report_end(std::string_view parsedir) {
  return ".dvi files are parsed to folder " + std::string(parsedir) + "/parse\n\n";
}

std::string failed_report_end(std::string_view parsedir) {
  return "error: fail to save parsed .dvi files to folder " + std::string(parsedir) + "/parse\n\n";
}

std::string dag_block(const dvi_fields& dvi) {
  const std::string define = "#define\t" + std::string(dvi.dag_name);
  return define + "_DAG_NAME\t\"" + std::string(dvi.dag_name) + "\"\n" +  //
         define + "_use_ping_pong_vmem\t" + std::to_string(dvi.ppv) + "\n" + define +
         "_image_start\t" + std::to_string(dvi.img_vaddr) + "\n" + define + "_image_size\t" +
         std::to_string(dvi.img_size) + "\n" + define + "_dagbin_start\t" +
         std::to_string(dvi.dag_vaddr) + "\n";
}

}  // namespace morvane::test
