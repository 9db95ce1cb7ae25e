// The plan of a sweep: which networks can be swept from this machine, and with which programs.
#pragma once

#include <string>
#include <vector>

#include "network/lookup.h"
#include "network/neighbourhood.h"
#include "network/network.h"
#include "network/options.h"

namespace hostsweep {

struct Plan {
  std::vector<Network> Networks;  // those to sweep
  Programs Available;
  bool IsComplete = true;          // false if a network or a kind of lookup is left out
  bool IsRefused = false;          // the options ask for something that cannot be seen from here
  std::vector<std::string> Notes;  // sentences for the user, to be said before the sweep
};

// The plan for these options on this machine. Sends nothing. Throws `std::system_error` if the
// system does not tell what is needed.
Plan MakePlan(const Options& options, const Neighbourhood& neighbourhood);

}  // namespace hostsweep
