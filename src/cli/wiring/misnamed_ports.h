// Ports that probably have a wrong name or a wrong keyword.
#pragma once

#include "cli/wiring/wiring_run.h"

namespace morvane::cli {

/// Adds the inputs that no output has the name of, but whose bytes an earlier output of another
/// name leaves. They count as readers of that output from then on.
void find_renamed_ports(wiring_run& run);

/// Whether an input brings something from outside to several DVIs, of which its own is the first.
bool is_shared_input(const wiring_run& run, std::uint32_t port);

/// Adds such an input whose DVI probably writes it, with what speaks for that.
void tell_input_for_output(wiring_run& run, std::uint32_t input, std::string_view reason);

/// Adds the inputs that several DVIs read from outside, although the first of them probably writes
/// their bytes.
void find_inputs_for_outputs(wiring_run& run);

}  // namespace morvane::cli
