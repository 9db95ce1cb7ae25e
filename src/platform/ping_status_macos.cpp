// macOS: ping(8) ends with 2 without an answer and with a status of sysexits(3) on an error.
#include <sysexits.h>

#include "platform/ping_status.h"

namespace hostsweep {

bool TellsSendFailure(int status) { return status >= EX__BASE && status <= EX__MAX; }

}  // namespace hostsweep
