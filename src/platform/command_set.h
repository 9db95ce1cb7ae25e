// Command lines that the system shell carries out at the same time, each in a process group of its
// own.
#pragma once

#include <poll.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/child_process.h"
#include "platform/descriptor.h"
#include "platform/text/text.h"

namespace hostsweep {

// The commands that run. They get the search path, the standard input and the standard error that
// `Shell` gives its commands. The destructor kills those that still run, with all processes in
// their groups, and waits for their end.
class CommandSet {
 public:
  // The use that is made of a command's standard output.
  enum class Output { Collect, Discard };

  struct Result {
    std::uint64_t Key = 0;   // as given to `Start`
    std::string Output;      // the first 64 KiB; empty if it was discarded
    int Status = 0;          // as sh(1) reports it
    bool WasKilled = false;  // a signal has terminated it
    bool IsCut = false;      // there was more output than is kept
  };

  CommandSet();
  CommandSet(const CommandSet&) = delete;
  CommandSet& operator=(const CommandSet&) = delete;
  ~CommandSet();

  // Has `/bin/sh` carry out `command` unchanged. Throws `std::system_error` if the system cannot
  // start it now.
  void Start(std::uint64_t key, const Text& command, Output output);

  // The number of commands that run.
  [[nodiscard]] std::size_t Count() const { return running_.size(); }

  // Appends the descriptors from which output comes, for poll(2).
  void Watch(std::vector<pollfd>& descriptors) const;

  // Takes in the output from those of these descriptors that poll(2) has found to be readable.
  // Throws `std::system_error` if that fails.
  void Read(const std::vector<pollfd>& descriptors);

  // The commands that have ended, in no particular order. A process that one has left in its group
  // is killed; what it wrote before the end of the command is in the output.
  std::vector<Result> TakeEnded();

  // Sends the signal to all processes of all commands.
  void Signal(int number) const;

 private:
  struct Running {
    std::uint64_t Key;
    ChildProcess Child;
    std::optional<Descriptor> Reader;  // until the end of the output
    std::string Output;
    bool IsCut = false;
  };

  static void Limit(Running& command);

  std::vector<std::string> environment_;
  std::map<pid_t, Running> running_;
};

}  // namespace hostsweep
