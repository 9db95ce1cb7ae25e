#include "tools/tool.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>

#include "platform/pointers.h"
#include "platform/process.h"
#include "platform/program_path.h"
#include "tools/next_program.h"

namespace hostsweep {

std::string ProgramBehind(const std::string& name) {
  return NextProgram(CompleteSearchPath(CallersSearchPath()), name, ProgramPath());
}

int Become(const std::string& program, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), program);
  execv(program.c_str(), Pointers(arguments).data());
  return Fail(program, std::strerror(errno), ExitCannotRun);
}

int Fail(const std::string& subject, const std::string& reason, int status) {
  std::fprintf(stderr, "%s: %s\n", subject.c_str(), reason.c_str());
  return status;
}

int RunTool(int (*run)(const std::vector<std::string>&), int argumentCount, char** arguments) {
  OpenStandardDescriptors();
  try {
    return run(std::vector<std::string>(arguments + std::min(argumentCount, 1),
                                        arguments + argumentCount));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}

}  // namespace hostsweep
