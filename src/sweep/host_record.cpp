#include "sweep/host_record.h"

namespace hostsweep {

Text DecideName(const HostRecord& record, bool liveNamesOnly) {
  const bool isLive = record.HardwareAddress != "";
  if (record.Name == record.Address) return isLive ? "[Unknown Device]" : "";
  if (liveNamesOnly && !isLive) return "";
  return record.Name;
}

Text FormatReportLine(const HostRecord& record, bool liveNamesOnly) {
  return record.Address + "=" + DecideName(record, liveNamesOnly) + "=" + record.HardwareAddress;
}

}  // namespace hostsweep
