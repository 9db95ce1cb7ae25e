// The application object as the frame sees it.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/exceptions.h"
#include "platform/text/text.h"

namespace hostsweep {

// Base of the one application object. The frame creates it, calls `Constructor`, stores its version
// data, registers it and calls `Run`, each once and in this order.
class ConsoleApplication {
 public:
  ConsoleApplication() = default;
  ConsoleApplication(const ConsoleApplication&) = delete;
  ConsoleApplication& operator=(const ConsoleApplication&) = delete;

  // Waits that many milliseconds; returns at once for 0 or less.
  virtual void DoEvents(std::int64_t milliseconds);

  // Stores the version data in the properties below: part of the application's interface, which
  // this program does not itself read.
  virtual void _x_SetVersionData(std::int64_t majorVersion, std::int64_t minorVersion,
                                 std::int64_t bugVersion, std::int64_t nonReleaseVersion,
                                 std::int64_t stageCode, const Text& longVersion,
                                 const Text& shortVersion, const Text& packageInfo);

  // The application's work. Returns the exit status. Argument 0 is the program's path.
  virtual std::int64_t Run(const std::vector<Text>& arguments) = 0;

  // Called with an exception that escaped `Run`. Returns true if the exception counts as handled;
  // always false unless overridden.
  virtual bool UnhandledException(const RuntimeException& error);

  // Called once after the object is created. Does nothing unless overridden; part of the
  // application's interface, which this program does not itself use.
  virtual void Constructor() {}

  virtual ~ConsoleApplication() = default;

  std::int64_t MajorVersion = 0;
  std::int64_t MinorVersion = 0;
  std::int64_t BugVersion = 0;
  std::int64_t NonReleaseVersion = 0;
  std::int64_t StageCode = 0;
  Text LongVersion;
  Text ShortVersion;
  Text PackageInfo;
};

// Registers the application object of the process, until the registration is destroyed.
class ApplicationRegistration {
 public:
  explicit ApplicationRegistration(ConsoleApplication& application);
  ApplicationRegistration(const ApplicationRegistration&) = delete;
  ApplicationRegistration& operator=(const ApplicationRegistration&) = delete;
  ~ApplicationRegistration();

  // The registered application object; null if there is none.
  static ConsoleApplication* Registered();
};

}  // namespace hostsweep
