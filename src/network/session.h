// One sweep from its plan to its end: standard output, the progress line and waiting.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "network/changes/changes_file.h"
#include "network/plan/options.h"
#include "network/plan/plan.h"
#include "platform/network/network_stack.h"

namespace hostsweep {

struct SessionEnd {
  bool IsComplete = false;
  bool IsReaderGone = false;  // the reader of standard output is gone, and nothing else counts
  std::string Summary;        // a line for a user at a terminal; empty without one
  std::vector<std::string> Reasons;  // sentences that say why the sweep is incomplete
  std::optional<std::string> Hint;   // for a table of nothing but this machine and its gateway
};

// Sweeps as planned, reports on standard output, and shows the progress on standard error if that
// is a terminal. With `changes`, which can be null, only what has changed is reported. Ends as soon
// as the reader of standard output is known to be gone. Throws `std::system_error` if standard
// output cannot be written, or the system cannot be asked.
SessionEnd RunSession(const Options& options, const Plan& plan, NetworkStack& stack,
                      ChangesFile* changes);

}  // namespace hostsweep
