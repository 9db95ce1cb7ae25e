// The search path: the folders in which commands are looked for, joined by ":". An empty one is the
// working directory. A folder is recognised by what it is, however its path is spelled.
#pragma once

#include <string>
#include <string_view>

namespace hostsweep {

// The caller's search path (empty for none), completed: those of /usr/bin, /bin, /usr/sbin and
// /sbin that it lacks come last, and `toolsFolder`, unless empty, comes before the first of these
// four. So what the caller put before them is found first.
std::string SearchPath(std::string_view callersPath, std::string_view toolsFolder);

// The first program of this name in the folders of `searchPath` that come after the last one in
// which the name leads to the file `self`; in all folders if it leads there in none. Empty if there
// is no such program.
//
// So programs that each run the next one of their own name come to an end, if each knows its own
// file: no two of them, nor one under two names, run each other in turn.
std::string NextProgram(std::string_view searchPath, const std::string& name,
                        const std::string& self);

}  // namespace hostsweep
