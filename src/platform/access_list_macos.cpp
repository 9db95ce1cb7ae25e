#include <sys/acl.h>

#include <cerrno>
#include <memory>
#include <type_traits>

#include "platform/access_list.h"

namespace hostsweep {
namespace {

struct Freer {
  void operator()(acl_t list) const { acl_free(list); }
};
using List = std::unique_ptr<std::remove_pointer_t<acl_t>, Freer>;

List ListOf(int file) { return List(acl_get_fd_np(file, ACL_TYPE_EXTENDED)); }

// True if errno says that there is no list.
bool IsNone() { return errno == ENOENT || errno == ENOTSUP || errno == EOPNOTSUPP; }

}  // namespace

bool CopyAccessList(int from, int to) {
  List list = ListOf(from);
  if (!list) {
    if (!IsNone()) return false;
    // A new file can have inherited a list from its directory.
    if (!ListOf(to)) return IsNone();
    list.reset(acl_init(1));  // an empty one
  }
  return list && acl_set_fd_np(to, list.get(), ACL_TYPE_EXTENDED) == 0;
}

}  // namespace hostsweep
