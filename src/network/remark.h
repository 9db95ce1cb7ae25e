// The program's remarks to the user.
#pragma once

#include <string>

namespace hostsweep {

// Writes the sentence to standard error on a line of its own, after the program's name.
void Remark(const std::string& sentence);

}  // namespace hostsweep
