#include "view/opened_package.h"

#include <cstring>

namespace morvane::test {

opened_package::opened_package(std::string_view package)
    : size(package.size()), bytes(std::make_unique<std::uint8_t[]>(package.size())) {
  if (!package.empty()) {
    std::memcpy(bytes.get(), package.data(), package.size());
  }
  open_again();
}

void opened_package::open_again() {
  view = {};
  damage = {};
  status = morvane_view_open(&view, bytes.get(), size, &damage);
}

std::string str(morvane_text text) {
  return {text.bytes, text.length};
}

std::string str(morvane_bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.bytes), bytes.size};
}

}  // namespace morvane::test
