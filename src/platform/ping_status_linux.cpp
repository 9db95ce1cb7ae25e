// Linux: ping(8) of iputils ends with 1 without an answer and with 2 on any other error; BusyBox's
// ends with 1 for both.
#include "platform/ping_status.h"

namespace hostsweep {

bool TellsSendFailure(int status) { return status == 2; }

}  // namespace hostsweep
