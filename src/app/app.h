// The application class of the program.
#pragma once

#include <cstdint>
#include <vector>

#include "app/console_application.h"

namespace hostsweep {

// The one application. It adds no state.
class App : public ConsoleApplication {
 public:
  // The application object of this process. Throws `NilObjectException` if no application is
  // registered, or if the registered one is not an `App`.
  static App& Current();

  // The program's whole work, which ends by `Quit(0)`. Defined in src/sweep/run.cpp, in the layer
  // that does this work.
  std::int64_t Run(const std::vector<Text>& arguments) override;

  // Calls `Quit(0)`: errors are not reported.
  bool UnhandledException(const RuntimeException& error) override;
};

}  // namespace hostsweep
