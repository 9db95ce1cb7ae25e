#include "network/engine/name_servers.h"

#define CARES_NO_DEPRECATED  // the functions that versions from 1.18 on have
#include <ares.h>

#include <algorithm>
#include <new>
#include <stdexcept>
#include <string_view>

#include "network/engine/dns_message.h"
#include "network/engine/pointer_records.h"
#include "platform/descriptor.h"

namespace hostsweep {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t MostQuestions = 64;
constexpr milliseconds LongestQuestion(6000);

// The time for the first try. Newer versions of the library adapt it to the answers, so without
// further tries a server that was fast could be given up too soon.
constexpr int FirstTimeout = 1000;
constexpr int Tries = 4;

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (&name == &names.front() ? "" : " ") + name;
  return text;
}

}  // namespace

NameServers::Channel::Channel(int flags) {
  static const int ready = ares_library_init(ARES_LIB_INIT_ALL);
  ares_options options{};
  options.flags = flags;
  options.timeout = FirstTimeout;
  options.tries = Tries;
  options.sock_state_cb_data = this;
  options.sock_state_cb = [](void* channel, ares_socket_t socket, int reads, int writes) {
    Channel& own = *static_cast<Channel*>(channel);
    if (reads == 0 && writes == 0) {
      own.Sockets.erase(socket);
      return;
    }
    try {
      own.Sockets[socket] = {reads != 0, writes != 0};
    } catch (...) {
      own.Error = std::current_exception();
    }
  };
  int given = ARES_OPT_FLAGS | ARES_OPT_TIMEOUTMS | ARES_OPT_TRIES | ARES_OPT_SOCK_STATE_CB;
#ifdef ARES_OPT_UDP_MAX_QUERIES
  // Versions with this option end all questions of a socket that receives a bad answer.
  options.udp_max_queries = 1;
  given |= ARES_OPT_UDP_MAX_QUERIES;
#endif
  const int status = ready == ARES_SUCCESS ? ares_init_options(&Handle, &options, given) : ready;
  if (status == ARES_ENOMEM) throw std::bad_alloc();
  if (status != ARES_SUCCESS) {
    throw std::runtime_error(std::string("name servers: ") + ares_strerror(status));
  }
}

NameServers::Channel::~Channel() { ares_destroy(Handle); }

NameServers::NameServers()
    : servers_(std::make_unique<Channel>(0)),
      firstServer_(std::make_unique<Channel>(ARES_FLAG_NOCHECKRESP)) {}

// The library ends each question that is still out by calling `Answered`, so the questions must
// still exist.
NameServers::~NameServers() {
  for (auto& [key, question] : questions_) question.IsOver = true;
  servers_.reset();
  firstServer_.reset();
}

void NameServers::Ask(std::uint64_t key, std::uint32_t address) {
  waiting_.emplace_back(key, address);
}

void NameServers::Proceed(const std::vector<Watched>& ready, Clock::time_point now) {
  for (Channel* const channel : {servers_.get(), firstServer_.get()}) {
    for (const Watched& watched : ready) {
      if (!watched.IsReady || !channel->Sockets.contains(watched.Descriptor)) continue;
      ares_process_fd(channel->Handle, watched.Reads ? watched.Descriptor : ARES_SOCKET_BAD,
                      watched.Writes ? watched.Descriptor : ARES_SOCKET_BAD);
    }
    ares_process_fd(channel->Handle, ARES_SOCKET_BAD, ARES_SOCKET_BAD);  // what is due by time
  }
  EndLate(now);
  AskNext(now);
  for (const std::exception_ptr& error : {error_, servers_->Error, firstServer_->Error}) {
    if (error) std::rethrow_exception(error);
  }
}

void NameServers::AskNext(Clock::time_point now) {
  while (!waiting_.empty() && outCount_ < MostQuestions) {
    const auto [key, address] = waiting_.front();
    waiting_.pop_front();
    if (unansweredCount_ >= MostQuestions) {
      results_.push_back({key, {}, NameSource::None, Trouble::NoServerReply});
      continue;
    }
    Question& question =
        questions_.emplace(key, Question{this, key, ReverseName(address), now + LongestQuestion})
            .first->second;
    deadlines_.push_back(key);
    ++outCount_;
    Send(question, *servers_);
  }
}

// When this returns, the question can already be answered and deleted.
void NameServers::Send(Question& question, const Channel& channel) {
  ares_query(channel.Handle, question.Name.c_str(), InternetClass, PointerType, Answered,
             &question);
}

// Called by the library, once for each `Send`. Nothing may be thrown through it.
void NameServers::Answered(void* question, int status, int /*timeouts*/, unsigned char* message,
                           int size) {
  Question& asked = *static_cast<Question*>(question);
  NameServers& servers = *asked.Owner;
  try {
    const std::string_view bytes(reinterpret_cast<const char*>(message),
                                 message == nullptr ? 0 : static_cast<std::size_t>(size));
    servers.HandleAnswer(asked, status, std::string(bytes));
  } catch (...) {
    servers.error_ = std::current_exception();
  }
}

void NameServers::HandleAnswer(Question& question, int status, const std::string& message) {
  if (!question.IsOver && status == ARES_ECONNREFUSED && !question.IsSecondTime) {
    // Older versions of the library also say this if the servers have refused or failed.
    question.IsSecondTime = true;
    Send(question, *firstServer_);
    return;
  }
  std::optional<std::vector<std::string>> names;
  switch (question.IsOver ? ARES_ECANCELLED : status) {
    case ARES_SUCCESS:
      names = PointerNamesIn(message, question.Name);
      if (names) {
        End(question, names->empty() ? std::nullopt : std::optional(Joined(*names)), {});
      } else {
        End(question, {}, Trouble::ServerFailed);
      }
      break;
    case ARES_ENODATA:
    case ARES_ENOTFOUND:
      End(question, {}, {});
      break;
    case ARES_EREFUSED:
      End(question, {}, Trouble::ServerRefused);
      break;
    case ARES_ECONNREFUSED:
      End(question, {}, HasFreeDescriptor() ? Trouble::NoServerReply : Trouble::Lack);
      break;
    case ARES_ETIMEOUT:
    case ARES_ECANCELLED:
      End(question, {}, Trouble::NoServerReply);
      break;
    case ARES_ENOMEM:
      End(question, {}, Trouble::Lack);
      break;
    default:
      End(question, {}, Trouble::ServerFailed);
      break;
  }
  questions_.erase(question.Key);
}

void NameServers::End(Question& question, std::optional<std::string> name,
                      std::optional<Trouble> failure) {
  if (question.IsOver) return;
  question.IsOver = true;
  --outCount_;
  unansweredCount_ = failure == Trouble::NoServerReply ? unansweredCount_ + 1 : 0;
  const NameSource source = name ? NameSource::Dns : NameSource::None;
  results_.push_back({question.Key, std::move(name), source, failure});
}

// Ends the questions whose deadline has passed; the library gives them up later.
void NameServers::EndLate(Clock::time_point now) {
  while (!deadlines_.empty()) {
    const auto found = questions_.find(deadlines_.front());
    if (found != questions_.end() && found->second.Deadline > now) return;
    if (found != questions_.end()) End(found->second, {}, Trouble::NoServerReply);
    deadlines_.pop_front();
  }
}

void NameServers::Watch(std::vector<Watched>& descriptors) const {
  for (const Channel* const channel : {servers_.get(), firstServer_.get()}) {
    for (const auto& [socket, interest] : channel->Sockets) {
      descriptors.push_back({socket, interest.Reads, interest.Writes});
    }
  }
}

std::optional<Clock::time_point> NameServers::NextTime(Clock::time_point now) const {
  std::optional<Clock::time_point> next;
  if (outCount_ == 0) return next;
  if (!deadlines_.empty()) {
    const auto found = questions_.find(deadlines_.front());
    next = found == questions_.end() ? now : found->second.Deadline;
  }
  for (const Channel* const channel : {servers_.get(), firstServer_.get()}) {
    timeval rest{};
    if (ares_timeout(channel->Handle, nullptr, &rest) == nullptr) continue;
    const auto time =
        now + std::chrono::seconds(rest.tv_sec) + std::chrono::microseconds(rest.tv_usec);
    next = next ? std::min(*next, time) : time;
  }
  return next;
}

}  // namespace hostsweep
