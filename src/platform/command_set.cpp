#include "platform/command_set.h"

#include <signal.h>  // NOLINT(modernize-deprecated-headers): POSIX's signals, not all in <csignal>

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/pipe.h"
#include "platform/tool_environment.h"

namespace hostsweep {

CommandSet::CommandSet() : environment_(ToolEnvironment()) {}

// All get the signal before the first is waited for: none goes on meanwhile.
CommandSet::~CommandSet() { Signal(SIGKILL); }

void CommandSet::Start(std::uint64_t key, const Text& command, Output output) {
  std::optional<Pipe> pipe;
  if (output == Output::Collect) pipe.emplace(OpenPipe());
  ChildProcess child = ChildProcess::StartIsolated(
      {"/bin/sh", "-c", command.Bytes()}, environment_,
      pipe ? pipe->Writer.Number() : ChildProcess::NoOutput, ChildProcess::Group::Own);
  const pid_t id = child.Id();
  Running running{key, std::move(child), {}, {}, false};
  if (pipe) running.Reader.emplace(std::move(pipe->Reader));
  running_.emplace(id, std::move(running));
}

void CommandSet::Watch(std::vector<pollfd>& descriptors) const {
  for (const auto& [id, command] : running_) {
    if (command.Reader) descriptors.push_back({command.Reader->Number(), POLLIN, 0});
  }
}

void CommandSet::Read(const std::vector<pollfd>& descriptors) {
  auto next = descriptors.begin();
  for (auto& [id, command] : running_) {
    if (!command.Reader) continue;
    const int number = command.Reader->Number();
    next = std::find_if(next, descriptors.end(),
                        [&](const pollfd& descriptor) { return descriptor.fd == number; });
    if (next == descriptors.end()) return;
    if (next->revents == 0) continue;
    if (ReadOnce(*command.Reader, command.Output) == ReadResult::End) command.Reader.reset();
    Limit(command);
  }
}

// Keeps what has been read small, however much a command writes.
void CommandSet::Limit(Running& command) {
  constexpr std::size_t MaximalOutput = 1U << 16U;
  if (command.Output.size() <= MaximalOutput) return;
  command.Output.resize(MaximalOutput);
  command.IsCut = true;
}

std::vector<CommandSet::Result> CommandSet::TakeEnded() {
  std::vector<Result> results;
  for (pid_t id = EndedChild(); id != 0; id = EndedChild()) {
    const auto found = running_.find(id);
    if (found == running_.end()) {
      ReapChild(id);
      continue;
    }
    Running& command = found->second;
    const int status = command.Child.Wait();
    if (command.Reader) ReadWithin(std::chrono::milliseconds(0), *command.Reader, command.Output);
    Limit(command);
    results.push_back(
        {command.Key, std::move(command.Output), status, command.Child.WasKilled(), command.IsCut});
    running_.erase(found);
  }
  return results;
}

void CommandSet::Signal(int number) const {
  for (const auto& [id, command] : running_) command.Child.Signal(number);
}

}  // namespace hostsweep
