#include "app/console_application.h"

#include <chrono>
#include <thread>

namespace hostsweep {
namespace {

ConsoleApplication* registered = nullptr;

}  // namespace

void ConsoleApplication::DoEvents(std::int64_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void ConsoleApplication::_x_SetVersionData(std::int64_t majorVersion, std::int64_t minorVersion,
                                           std::int64_t bugVersion, std::int64_t nonReleaseVersion,
                                           std::int64_t stageCode, const Text& longVersion,
                                           const Text& shortVersion, const Text& packageInfo) {
  MajorVersion = majorVersion;
  MinorVersion = minorVersion;
  BugVersion = bugVersion;
  NonReleaseVersion = nonReleaseVersion;
  StageCode = stageCode;
  LongVersion = longVersion;
  ShortVersion = shortVersion;
  PackageInfo = packageInfo;
}

bool ConsoleApplication::UnhandledException(const RuntimeException& /*error*/) { return false; }

ApplicationRegistration::ApplicationRegistration(ConsoleApplication& application) {
  registered = &application;
}

ApplicationRegistration::~ApplicationRegistration() { registered = nullptr; }

ConsoleApplication* ApplicationRegistration::Registered() { return registered; }

}  // namespace hostsweep
