// The environment of the running program.
#pragma once

#include <string>
#include <vector>

namespace hostsweep {

// Every variable as "NAME=value", in the order of the environment.
std::vector<std::string> Environment();

}  // namespace hostsweep
