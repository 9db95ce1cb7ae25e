// Access control lists: who may use a file beside its owner, its group and everybody else.
#pragma once

namespace hostsweep {

// Gives an open file the list of another one: none if that has none, or the file system has no
// lists. Returns false, with errno set, if that cannot be done. On Linux the list contains the
// permissions of the owner, the group and everybody else, too.
bool CopyAccessList(int from, int to);

}  // namespace hostsweep
