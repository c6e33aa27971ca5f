#include "cli/report/html/html_text.h"
#include "cli/report/html/page_style.h"
#include "cli/report/sections/sections.h"
#include "format/build_constants.h"

namespace morvane::cli {

void write_page(const page_content& content, page_output& out) {
  // The policy allows this one style sheet and nothing else: no script, request, image or font.
  write(out,
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src '",
        page_style_hash,
        "'; base-uri 'none'; form-action 'none'\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<meta name=\"referrer\" content=\"no-referrer\">\n<title>",
        html(file_name(content.package.path)), ": package report</title>\n<style>", page_style,
        "</style>\n</head>\n<body>\n");
  write_page_head(content, out);
  write(out, "<main>\n");
  write_findings(content, out);
  write_overview(content, out);
  write_changes(content, out);
  write_network(content, out);
  write_images(content, out);
  write_port_bytes(content, out);
  write_file(content, out);
  write_dvis(content, out);
  write(out, "</main>\n<footer><p>Made by <code>morvane report</code>, ",
        version_text(version_word, revision_hash()), ".</p></footer>\n</body>\n</html>\n");
}

}  // namespace morvane::cli
