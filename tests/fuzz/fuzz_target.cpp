#include "fuzz/fuzz_target.h"

#include <cstdio>
#include <cstdlib>

namespace morvane::test {

void require(bool holds, const char* promise) {
  if (!holds) {
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
  }
}

}  // namespace morvane::test
