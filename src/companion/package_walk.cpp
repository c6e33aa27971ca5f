#include "companion/package_walk.h"

#include "io/message.h"

namespace morvane::companion {

std::string str(const record_name& name) {
  std::string text;
  if (!name.kind.empty()) {
    append_pieces(text, name.kind, " ", name.index, " of ");
  }
  append_pieces(text, "DVI ", name.dvi);
  return text;
}

}  // namespace morvane::companion
