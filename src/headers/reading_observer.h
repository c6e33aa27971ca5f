// What the parsers of a header tell about their way through it. The pack run does not listen.
#pragma once

#include <string_view>

#include "format/macros.h"
#include "headers/macro_values.h"

namespace morvane {

/// Is told what a parser reads, and does nothing: the compiler leaves no trace of it. Another
/// observer has the same functions. All texts lie in the header.
struct no_observer {
  /// The value that names the DAG.
  void name_dag(std::string_view /*name*/) const {}

  /// A line of the DAG's description that counts as a port, with the port's name.
  void count_port(std::string_view /*name*/, const port_class& /*ports_class*/) const {}

  /// A line that counts as a variable or an SMB, with its name.
  void count_variable(std::string_view /*name*/) const {}
  void count_smb(std::string_view /*name*/) const {}

  /// A line that introduces a block, with the block's name.
  void begin_block(std::string_view /*name*/) const {}

  /// A line of the block or the DAG's description, and what it gives a value to, if anything.
  void read_line(std::string_view /*line*/, const macro_match& /*match*/) const {}

  /// The line that ends the block, which is no part of it; empty at the end of the header.
  void end_block(std::string_view /*line*/) const {}
};

}  // namespace morvane
