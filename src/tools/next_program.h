// The program that a tool stands in for: the next one of its name on the search path.
#pragma once

#include <string>

#include "platform/search_path.h"

namespace hostsweep {

// The path of the first program of this name after the running tool on the search path: only the
// directories after the last directory in which the name leads to `self`, the tool's own file,
// count, or all directories if there is no such directory. Empty if there is no such
// program, or if `self` is empty, since the tool could then find itself.
//
// So programs that each run the next program of their own name never run each other in turn, even
// if one of them is there under two paths, provided that each knows its own file.
std::string NextProgram(const SearchPath& searchPath, const std::string& name,
                        const std::string& self);

}  // namespace hostsweep
