#include "network/remark.h"

#include "platform/console.h"

namespace hostsweep {

void Remark(const std::string& sentence) { PrintError("hostsweep-network: " + sentence + "\n"); }

}  // namespace hostsweep
