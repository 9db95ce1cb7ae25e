#include "app/frame.h"

#include "app/app.h"
#include "app/tools_directory.h"
#include "app/version.h"
#include "platform/exceptions.h"
#include "platform/process.h"
#include "platform/program_path.h"
#include "platform/search_path.h"

namespace hostsweep {
namespace {

// Calls `Run`, and the application's handler with an error that escapes it.
std::int64_t RunWithHandler(ConsoleApplication& application, const std::vector<Text>& arguments) {
  try {
    return application.Run(arguments);
  } catch (const EndException&) {
    throw;
  } catch (const RuntimeException& error) {
    if (!application.UnhandledException(error)) throw;
    return 0;
  }
}

}  // namespace

std::int64_t RunProgram(const std::vector<Text>& arguments) {
  PrepareProcess();
  ReplaceSearchPath(SearchPathWithTools(CallersSearchPath(), ToolsDirectory(ProgramPath())));
  App application;
  return RunApplication(application, arguments);
}

std::int64_t RunApplication(ConsoleApplication& application, const std::vector<Text>& arguments) {
  application.Constructor();
  constexpr std::int64_t FinalRelease = 3;
  application._x_SetVersionData(MajorVersion, MinorVersion, BugVersion, 0, FinalRelease, "",
                                ShortVersion, "");
  const ApplicationRegistration registration(application);
  return _CallFunctionWithExceptionHandling(application, arguments);
}

std::int64_t _CallFunctionWithExceptionHandling(  // NOLINT(bugprone-reserved-identifier)
    ConsoleApplication& application, const std::vector<Text>& arguments) {
  try {
    return RunWithHandler(application, arguments);
  } catch (const EndException& end) {
    return end.ExitCode();
  }
}

}  // namespace hostsweep
