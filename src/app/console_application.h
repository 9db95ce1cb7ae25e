// The application object as the frame knows it: what a console program is asked, in which order.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/exceptions.h"
#include "platform/text.h"

namespace hostsweep {

// Base of the one application object. The frame constructs it, stores its version data, registers
// it and calls `Run`, each once and in this order.
class ConsoleApplication {
 public:
  ConsoleApplication() = default;
  ConsoleApplication(const ConsoleApplication&) = delete;
  ConsoleApplication& operator=(const ConsoleApplication&) = delete;
  virtual ~ConsoleApplication() = default;

  // Waits that many milliseconds; 0 or less returns at once.
  virtual void DoEvents(std::int64_t milliseconds);

  // Stores the version data in the properties below.
  virtual void _x_SetVersionData(std::int64_t majorVersion, std::int64_t minorVersion,
                                 std::int64_t bugVersion, std::int64_t nonReleaseVersion,
                                 std::int64_t stageCode, const Text& longVersion,
                                 const Text& shortVersion, const Text& packageInfo);

  // The application's work; its result is the exit status. Argument 0 is the program's path.
  virtual std::int64_t Run(const std::vector<Text>& arguments) = 0;

  // Offered an exception that escaped `Run`; true if it counts as handled. Unless overridden, none
  // does.
  virtual bool UnhandledException(const RuntimeException& error);

  // Construction by the frame; unless overridden, there is nothing to do.
  virtual void Constructor() {}

  std::int64_t MajorVersion = 0;
  std::int64_t MinorVersion = 0;
  std::int64_t BugVersion = 0;
  std::int64_t NonReleaseVersion = 0;
  std::int64_t StageCode = 0;
  Text LongVersion;
  Text ShortVersion;
  Text PackageInfo;
};

// Makes an application the process's one application object for as long as the registration lives.
class ApplicationRegistration {
 public:
  explicit ApplicationRegistration(ConsoleApplication& application);
  ApplicationRegistration(const ApplicationRegistration&) = delete;
  ApplicationRegistration& operator=(const ApplicationRegistration&) = delete;
  ~ApplicationRegistration();

  // The registered application, null if there is none.
  static ConsoleApplication* Registered();
};

}  // namespace hostsweep
