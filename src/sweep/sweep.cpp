#include "sweep/sweep.h"

#include "app/app.h"
#include "platform/console.h"
#include "platform/text/text_operations.h"
#include "sweep/host_record.h"
#include "sweep/lookups.h"

namespace hostsweep {
namespace {

constexpr std::int64_t LastHost = 254;

}  // namespace

void SweepHosts(const SweepRange& range, Shell& shell) {
  // A range whose end has wrapped around ends below its start: there is nothing to sweep.
  for (std::int64_t host = range.FirstHost; host < EndOf(range); ++host) {
    SweepHost(host, range, shell);
  }
}

void SweepHost(std::int64_t hostNumber, const SweepRange& range, Shell& shell) {
  constexpr std::int64_t PauseMilliseconds = 10;
  if (hostNumber > LastHost) return;
  HostRecord record;
  record.Address = range.Prefix + "." + Str(hostNumber);
  ProbeAddress(shell, record.Address);
  record.Name = LookupHostName(shell, record.Address);
  record.HardwareAddress = LookupHardwareAddress(shell, record.Address);
  Print(FormatReportLine(record, range.LiveNamesOnly));
  App::Current().DoEvents(PauseMilliseconds);
}

}  // namespace hostsweep
