// The application class of the program.
#pragma once

#include <cstdint>
#include <vector>

#include "app/console_application.h"

namespace hostsweep {

// The one application. It adds no state; its `Run` is written by the floor above.
class App : public ConsoleApplication {
 public:
  // The application object of this process. Raises `NilObjectException` if there is none, or if it
  // is not an `App`.
  static App& Current();

  // Always 0, or left by an exception.
  std::int64_t Run(const std::vector<Text>& arguments) override;

  // Ends the program with exit code 0, by `Quit`: an error is never reported.
  bool UnhandledException(const RuntimeException& error) override;
};

}  // namespace hostsweep
