// Arp ADDRESS: prints the address's entry in the ARP cache in the words of arp(8) on macOS. Another
// Arp on the search path after this one, or the system's arp where this one cannot read the cache,
// is run in its place.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "platform/pointers.h"
#include "tools/arp_cache.h"
#include "tools/tool.h"

namespace hostsweep {
namespace {

// Runs the program in place of this one. Returns only if that fails.
int Become(const std::string& program, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), program);
  execv(program.c_str(), Pointers(arguments).data());
  return Fail("Arp", program + ": " + std::strerror(errno), CannotRun);
}

// The three forms of arp(8)'s answer.
std::string Describe(const std::string& address, const std::optional<ArpEntry>& entry) {
  if (!entry) return address + " (" + address + ") -- no entry";
  const std::string& hardwareAddress = entry->HardwareAddress;
  return "? (" + address + ") at " + (hardwareAddress.empty() ? "(incomplete)" : hardwareAddress) +
         " on " + entry->Device + (entry->IsPermanent ? " permanent" : "");
}

int Run(const std::vector<std::string>& arguments) {
  const std::string other = NextProgram("Arp");
  if (!other.empty()) return Become(other, arguments);
  if (!CanReadArpCache()) {
    const std::string arp = NextProgram("arp");
    return arp.empty() ? Fail("Arp", "arp: not found", NotFound) : Become(arp, arguments);
  }
  if (arguments.size() != 1) return Fail("usage", "Arp ADDRESS", 2);
  const std::optional<ArpEntry> entry = FindArpEntry(arguments[0]);
  if (std::puts(Describe(arguments[0], entry).c_str()) < 0 || std::fflush(stdout) != 0) {
    return Fail("Arp", std::string("standard output: ") + std::strerror(errno), 1);
  }
  return entry ? 0 : 1;
}

}  // namespace
}  // namespace hostsweep

int main(int argumentCount, char** arguments) {
  return hostsweep::RunTool(hostsweep::Run, argumentCount, arguments);
}
