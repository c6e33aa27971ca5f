// What morvane lint says about macros that a condition, a comment or #undef changes for C.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintConditions : public linted_folder {};

}  // namespace
}  // namespace morvane::test
