// The application's work: from the arguments to the last report line.
#include "app/app.h"
#include "platform/console.h"
#include "platform/shell.h"
#include "sweep/sweep.h"
#include "sweep/sweep_range.h"

namespace hostsweep {

std::int64_t App::Run(const std::vector<Text>& arguments) {
  Shell shell;
  SweepHosts(ReadSweepRange(arguments), shell);
  Quit(0);
}

}  // namespace hostsweep
