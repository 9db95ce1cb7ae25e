#include "app/frame.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

#include "app/app.h"
#include "platform/console.h"

namespace hostsweep {
namespace {

// An application whose work is the test's.
class TestApp : public App {
 public:
  explicit TestApp(std::function<std::int64_t()> work) : work_(std::move(work)) {}

  std::int64_t Run(const std::vector<Text>& /*arguments*/) override { return work_(); }

  bool UnhandledException(const RuntimeException& error) override {
    ++HandlerCalls;
    return Handler ? Handler() : App::UnhandledException(error);
  }

  std::function<bool()> Handler;
  int HandlerCalls = 0;

 private:
  std::function<std::int64_t()> work_;
};

std::int64_t Call(TestApp& app) { return _CallFunctionWithExceptionHandling(app, {}); }

TEST(Frame, GivesTheResultOfRun) {
  TestApp app([] { return 7; });
  EXPECT_EQ(Call(app), 7);
}

TEST(Frame, QuitReleasesLocalsAndNeverReachesTheHandler) {
  bool isReleased = false;
  TestApp app([&]() -> std::int64_t {
    const std::shared_ptr<void> local(nullptr, [&](void*) { isReleased = true; });
    Quit(5);
  });
  EXPECT_EQ(Call(app), 5);
  EXPECT_TRUE(isReleased);
  EXPECT_EQ(app.HandlerCalls, 0);
}

TEST(Frame, EndOfTheThreadIsANormalEnd) {
  TestApp app([]() -> std::int64_t { throw ThreadEndException(); });
  EXPECT_EQ(Call(app), 0);
  EXPECT_EQ(app.HandlerCalls, 0);
}

TEST(Frame, AnErrorThatEscapesRunEndsWithStatusZero) {
  TestApp app([]() -> std::int64_t { throw ShellNotAvailableException(); });
  EXPECT_EQ(Call(app), 0);
  EXPECT_EQ(app.HandlerCalls, 1);
}

TEST(Frame, TheHandlerDecides) {
  TestApp app([]() -> std::int64_t { throw NilObjectException(); });
  app.Handler = [] { return true; };
  EXPECT_EQ(Call(app), 0);
  app.Handler = [] { return false; };
  EXPECT_THROW(Call(app), NilObjectException);
  app.Handler = []() -> bool { Quit(3); };
  EXPECT_EQ(Call(app), 3);
  app.Handler = []() -> bool { throw ShellNotRunningException(); };
  EXPECT_THROW(Call(app), ShellNotRunningException);
}

TEST(Frame, AnErrorOutsideTheFamilyPasses) {
  TestApp app([]() -> std::int64_t { throw std::logic_error("none of ours"); });
  EXPECT_THROW(Call(app), std::logic_error);
  EXPECT_EQ(app.HandlerCalls, 0);
}

TEST(App, IsTheRegisteredOne) {
  EXPECT_THROW(App::Current(), NilObjectException);
  TestApp app([] { return 0; });
  {
    const ApplicationRegistration registration(app);
    EXPECT_EQ(&App::Current(), &app);
  }
  EXPECT_THROW(App::Current(), NilObjectException);
}

TEST(App, IsNotAnyOtherApplication) {
  class Other : public ConsoleApplication {
    std::int64_t Run(const std::vector<Text>& /*arguments*/) override { return 0; }
  };
  Other other;
  const ApplicationRegistration registration(other);
  EXPECT_THROW(App::Current(), NilObjectException);
}

}  // namespace
}  // namespace hostsweep
