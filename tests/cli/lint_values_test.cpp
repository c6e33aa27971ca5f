// What morvane lint says about values that the pack run reads in another way than C.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

using namespace std::literals;

class LintValues : public linted_folder {};

}  // namespace
}  // namespace morvane::test
