// Calls of the operating system that fail by errno.
#pragma once

#include <cerrno>
#include <system_error>

namespace hostsweep {

// The result of `call`, which is made again as long as it fails with EINTR.
template <typename Call>
auto RetryInterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result != -1 || errno != EINTR) return result;
  }
}

// Throws the `std::system_error` of errno, which the call of this name has set.
[[noreturn]] inline void ThrowSystemError(const char* call) {
  throw std::system_error(errno, std::generic_category(), call);
}

}  // namespace hostsweep
