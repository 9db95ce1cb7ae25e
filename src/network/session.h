// One sweep from its plan to its end: commands, signals, standard output and the progress line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "network/neighbourhood.h"
#include "network/options.h"
#include "network/plan.h"

namespace hostsweep {

// The end of a session: by a signal, or with an exit status.
struct SessionEnd {
  std::optional<int> Signal;
  int Status = 0;
  std::string Summary;               // a line for a user at a terminal; empty without one
  std::vector<std::string> Reasons;  // sentences that say why the sweep is incomplete
};

// Sweeps as planned and reports on standard output, and on standard error the progress, if there is
// somebody to see it. A signal that terminates, and a
// reader of standard output that goes, end it at once: with SIGPIPE for the latter.
//
// Nothing that it has started is left when it returns or throws.
SessionEnd RunSession(const Options& options, const Plan& plan, const Neighbourhood& neighbourhood);

}  // namespace hostsweep
