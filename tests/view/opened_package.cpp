#include "view/opened_package.h"

#include <algorithm>

namespace morvane::test {

opened_package::opened_package(std::string_view package)
    : bytes(std::make_unique<std::uint8_t[]>(package.size())) {
  std::ranges::copy(package, bytes.get());
  status = morvane_view_open(&view, bytes.get(), package.size(), &damage);
}

std::string str(morvane_text text) {
  return {text.bytes, text.length};
}

std::string str(morvane_bytes bytes) {
  return {reinterpret_cast<const char*>(bytes.bytes), bytes.size};
}

}  // namespace morvane::test
