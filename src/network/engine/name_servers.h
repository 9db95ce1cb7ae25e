// Reverse lookups of many addresses at a time, by the name servers of /etc/resolv.conf.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "network/engine/name_result.h"
#include "platform/clock.h"
#include "platform/poll.h"

struct ares_channeldata;

namespace hostsweep {

// Nothing here waits: `Watch` and `NextTime` say what to wait for, before the next `Proceed`.
//
// At most 64 questions are out at a time. Each has six seconds, in which it is repeated, and other
// servers are asked. After 64 questions in a row without a reply from any server, no more are
// asked.
class NameServers {
 public:
  // Throws `std::runtime_error` if the library cannot be made ready.
  NameServers();
  NameServers(const NameServers&) = delete;
  NameServers& operator=(const NameServers&) = delete;
  ~NameServers();

  // Looks the name of the address up, as soon as there is room.
  void Ask(std::uint64_t key, std::uint32_t address);

  // Does what can be done now, with the descriptors that are ready.
  void Proceed(const std::vector<Watched>& ready, Clock::time_point now);

  // The results that have come since the last call. Several names of an address, in alphabetical
  // order, are joined by spaces.
  std::vector<NameResult> TakeResults() { return std::exchange(results_, {}); }

  // Appends the descriptors to wait for.
  void Watch(std::vector<Watched>& descriptors) const;

  // The time at which `Proceed` has something to do even if nothing is ready; nothing if there is
  // no such time.
  [[nodiscard]] std::optional<Clock::time_point> NextTime(Clock::time_point now) const;

 private:
  struct Question {
    NameServers* Owner;
    std::uint64_t Key;
    std::string Name;
    Clock::time_point Deadline;
    bool IsOver = false;        // it has a result
    bool IsSecondTime = false;  // asked again to learn what the servers say
  };
  struct Interest {
    bool Reads;
    bool Writes;
  };
  // The library's channel to the servers, and what it waits for.
  struct Channel {
    explicit Channel(int flags);
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;
    ~Channel();
    ares_channeldata* Handle = nullptr;
    std::map<int, Interest> Sockets;
    std::exception_ptr Error;  // what must not pass through the library
  };

  static void Answered(void* question, int status, int timeouts, unsigned char* message, int size);
  void HandleAnswer(Question& question, int status, const std::string& message);
  static void Send(Question& question, const Channel& channel);
  void End(Question& question, std::optional<std::string> name, std::optional<Trouble> failure);
  void AskNext(Clock::time_point now);
  void EndLate(Clock::time_point now);

  std::deque<std::pair<std::uint64_t, std::uint32_t>> waiting_;  // key and address
  std::map<std::uint64_t, Question> questions_;  // the questions that the library has, by key
  std::deque<std::uint64_t> deadlines_;          // their keys, in the order of their deadlines
  std::size_t outCount_ = 0;                     // questions without a result
  std::size_t unansweredCount_ = 0;              // questions in a row without a reply
  std::vector<NameResult> results_;
  std::exception_ptr error_;  // what must not pass through the library
  // If a server refuses or fails, the next server is asked, and the library does not tell what the
  // servers said.
  std::unique_ptr<Channel> servers_;
  // The library tells what the first server says.
  std::unique_ptr<Channel> firstServer_;
};

}  // namespace hostsweep
