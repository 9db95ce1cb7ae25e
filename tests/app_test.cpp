// src/app/: the frame around Run.
#include "app/app.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include "app/frame.h"
#include "platform/console.h"
#include "platform/text/text_operations.h"

namespace hostsweep {
namespace {

// An application whose work and handler come from the test.
class TestApp : public App {
 public:
  std::int64_t Run(const std::vector<Text>& arguments) override {
    Arguments = arguments;
    return Work();
  }
  bool UnhandledException(const RuntimeException& error) override {
    ++HandlerCalls;
    return Handler ? Handler() : App::UnhandledException(error);
  }
  void Constructor() override { VersionWhenConstructed = MajorVersion; }

  std::vector<Text> Arguments;
  std::function<std::int64_t()> Work;
  std::function<bool()> Handler;
  int HandlerCalls = 0;
  std::int64_t VersionWhenConstructed = -1;
};

class Frame : public testing::Test {
 protected:
  std::int64_t Call() { return _CallFunctionWithExceptionHandling(app_, {}); }
  TestApp app_;
};

TEST_F(Frame, RunIsCalledInARegisteredApplicationWithItsVersionData) {
  app_.Work = [&] {
    EXPECT_EQ(&App::Current(), &app_);
    EXPECT_EQ(app_.VersionWhenConstructed, 0);
    EXPECT_EQ(Join({Str(app_.MajorVersion), Str(app_.MinorVersion), Str(app_.BugVersion)}, "."),
              app_.ShortVersion);
    return app_.StageCode;
  };
  EXPECT_EQ(RunApplication(app_, {"path", "x"}), 3);
  EXPECT_EQ(app_.Arguments, std::vector<Text>({"path", "x"}));
  EXPECT_THROW(App::Current(), NilObjectException);
}

TEST_F(Frame, NormalEndsNeverReachTheHandler) {
  app_.Work = [] { return 7; };
  EXPECT_EQ(Call(), 7);
  app_.Work = []() -> std::int64_t { Quit(5); };
  EXPECT_EQ(Call(), 5);
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
  EXPECT_FALSE(app_.ConsoleApplication::UnhandledException(NilObjectException()));
  app_.Work = []() -> std::int64_t { throw 1; };  // not an exception of ours
  EXPECT_THROW(Call(), int);
  EXPECT_EQ(app_.HandlerCalls, 5);
}

TEST_F(Frame, DoEventsWaits) {
  const auto begin = std::chrono::steady_clock::now();
  app_.DoEvents(INT64_MIN);
  app_.DoEvents(20);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(20));
}

}  // namespace
}  // namespace hostsweep
