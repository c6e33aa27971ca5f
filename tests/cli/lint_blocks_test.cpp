// What morvane lint says about macros whose block is another one than their line is in.
#include <gtest/gtest.h>

#include "cli/linted_folder.h"

namespace morvane::test {
namespace {

class LintBlocks : public linted_folder {};

}  // namespace
}  // namespace morvane::test
