// Arp ADDRESS: prints the address's entry in the ARP cache in the words of arp(8) on macOS. Another
// Arp on the search path after this one, or the system's arp where this one cannot read the cache,
// is run in its place.
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "platform/pointers.h"
#include "tools/arp_cache.h"
#include "tools/next_program.h"

namespace hostsweep {
namespace {

// As sh(1) reports them.
constexpr int CannotRun = 126;
constexpr int NotFound = 127;

int Fail(const std::string& message, int status) {
  std::fprintf(stderr, "Arp: %s\n", message.c_str());
  return status;
}

// Runs the program in place of this one. Returns only if that fails.
int Become(const std::string& program, std::vector<std::string> command) {
  command.front() = program;
  execv(program.c_str(), Pointers(command).data());
  return Fail(program + ": " + std::strerror(errno), CannotRun);
}

// The three forms of arp(8)'s answer.
std::string Describe(const std::string& address, const std::optional<ArpEntry>& entry) {
  if (!entry) return address + " (" + address + ") -- no entry";
  const std::string& hardwareAddress = entry->HardwareAddress;
  return "? (" + address + ") at " + (hardwareAddress.empty() ? "(incomplete)" : hardwareAddress) +
         " on " + entry->Device + (entry->IsPermanent ? " permanent" : "");
}

int Run(const std::vector<std::string>& command) {
  const std::string other = NextProgram("Arp");
  if (!other.empty()) return Become(other, command);
  if (!CanReadArpCache()) {
    const std::string arp = NextProgram("arp");
    return arp.empty() ? Fail("arp: not found", NotFound) : Become(arp, command);
  }
  if (command.size() != 2) return Fail("usage: Arp ADDRESS", 2);
  const std::optional<ArpEntry> entry = FindArpEntry(command[1]);
  if (std::puts(Describe(command[1], entry).c_str()) < 0 || std::fflush(stdout) != 0) {
    return Fail(std::string("standard output: ") + std::strerror(errno), 1);
  }
  return entry ? 0 : 1;
}

}  // namespace
}  // namespace hostsweep

int main(int argumentCount, char** arguments) {
  return hostsweep::Run({arguments, arguments + argumentCount});
}
