#include "app/frame.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>

#include "app/app.h"
#include "platform/console.h"

namespace hostsweep {
namespace {

// An application whose work and whose handler are the test's.
class TestApp : public App {
 public:
  std::int64_t Run(const std::vector<Text>& /*arguments*/) override { return Work(); }
  bool UnhandledException(const RuntimeException& error) override {
    ++HandlerCalls;
    return Handler ? Handler() : App::UnhandledException(error);
  }

  std::function<std::int64_t()> Work;
  std::function<bool()> Handler;
  int HandlerCalls = 0;
};

class Frame : public testing::Test {
 protected:
  std::int64_t Call() { return _CallFunctionWithExceptionHandling(app_, {}); }
  TestApp app_;
};

TEST_F(Frame, NormalEndsNeverReachTheHandler) {
  app_.Work = [] { return 7; };
  EXPECT_EQ(Call(), 7);
  bool isReleased = false;
  app_.Work = [&]() -> std::int64_t {
    const std::shared_ptr<void> local(nullptr, [&](void*) { isReleased = true; });
    Quit(5);
  };
  EXPECT_EQ(Call(), 5);
  EXPECT_TRUE(isReleased);
  app_.Work = []() -> std::int64_t { throw ThreadEndException(); };
  EXPECT_EQ(Call(), 0);
  EXPECT_EQ(app_.HandlerCalls, 0);
}

TEST_F(Frame, TheHandlerDecides) {
  app_.Work = []() -> std::int64_t { throw ShellNotAvailableException(); };
  EXPECT_EQ(Call(), 0);  // the application's own handler
  app_.Handler = [] { return true; };
  EXPECT_EQ(Call(), 0);
  app_.Handler = [] { return false; };
  EXPECT_THROW(Call(), ShellNotAvailableException);
  app_.Handler = []() -> bool { Quit(3); };
  EXPECT_EQ(Call(), 3);
  app_.Handler = []() -> bool { throw ShellNotRunningException(); };
  EXPECT_THROW(Call(), ShellNotRunningException);
  EXPECT_EQ(app_.HandlerCalls, 5);
}

TEST_F(Frame, AnErrorOutsideTheFamilyPasses) {
  app_.Work = []() -> std::int64_t { throw std::logic_error("none of ours"); };
  EXPECT_THROW(Call(), std::logic_error);
  EXPECT_EQ(app_.HandlerCalls, 0);
}

TEST_F(Frame, DoEventsWaits) {
  const auto begin = std::chrono::steady_clock::now();
  app_.DoEvents(std::numeric_limits<std::int64_t>::min());
  app_.DoEvents(20);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(20));
}

TEST_F(Frame, TheApplicationIsTheRegisteredOne) {
  EXPECT_THROW(App::Current(), NilObjectException);
  const ApplicationRegistration registration(app_);
  EXPECT_EQ(&App::Current(), &app_);
}

}  // namespace
}  // namespace hostsweep
