// The program that a tool stands in for: the next one of its name on the search path.
#pragma once

#include <string>

#include "platform/search_path.h"

namespace hostsweep {

// The first program of this name in the directories of `searchPath` that come after the last one in
// which the name leads to the file `self`, the running tool; in all directories if it leads there
// in none. Empty if there is no such program, or if `self` is empty: it could be found itself.
//
// So programs that each run the next one of their own name come to an end, if each knows its own
// file: no two of them, nor one under two names, run each other in turn.
std::string NextProgram(const SearchPath& searchPath, const std::string& name,
                        const std::string& self);

}  // namespace hostsweep
