// Arp ADDRESS: prints the address's entry in the ARP cache in the words of arp(8) on macOS. If the
// search path has another Arp after this one, that is run instead.
#include <string>
#include <vector>

#include "tools/arp_cache.h"
#include "tools/tool.h"

namespace hostsweep {
namespace {

int Run(const std::vector<std::string>& arguments) {
  const std::string other = OtherArp();
  if (!other.empty()) return Become(other, arguments);
  if (arguments.size() != 1) return Fail("usage", "Arp ADDRESS", 2);
  return PrintArpEntry(arguments[0]);
}

}  // namespace
}  // namespace hostsweep

int main(int argumentCount, char** arguments) {
  return hostsweep::RunTool(hostsweep::Run, argumentCount, arguments);
}
