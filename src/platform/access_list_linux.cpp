#include <sys/xattr.h>

#include <cerrno>
#include <cstddef>
#include <vector>

#include "platform/access_list.h"

namespace hostsweep {
namespace {

constexpr const char* Attribute = "system.posix_acl_access";

// True if errno says that there is no list.
bool IsNone() { return errno == ENODATA || errno == EOPNOTSUPP; }

}  // namespace

bool CopyAccessList(int from, int to) {
  constexpr std::size_t LargestAttribute = 1U << 16U;
  std::vector<char> list(LargestAttribute);
  const ssize_t size = fgetxattr(from, Attribute, list.data(), list.size());
  if (size >= 0) {
    return fsetxattr(to, Attribute, list.data(), static_cast<std::size_t>(size), 0) == 0;
  }
  if (!IsNone()) return false;
  // A new file can have inherited a list from its directory.
  return fremovexattr(to, Attribute) == 0 || IsNone();
}

}  // namespace hostsweep
