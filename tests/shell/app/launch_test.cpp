#include <QScrollArea>

#include "shell/app/app_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

TEST_F(AppTest, PresentsTheMainWindowAtLaunchInItsOwnSize) {
  launch();
  ASSERT_TRUE(isOnScreen("Orvane"));
  EXPECT_TRUE(widget("Orvane").isActiveWindow());
  EXPECT_EQ(widget("Orvane").size(), QSize(640, 860));
  EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::regular);
  EXPECT_EQ(defaults.boolean("NSQuitAlwaysKeepsWindows"), false);
  EXPECT_EQ(desktop.windows().size(), 1U);
}

TEST_F(AppTest, TellsInTheStatusAreaThatNothingIsSetUp) {
  launch();
  EXPECT_EQ(statusBar.created, 1);
  EXPECT_EQ(statusItem().toolTip, "Orvane · No API token or address");
  EXPECT_EQ(statusItem().image->text, "");
  EXPECT_EQ(statusMenu().front().title, "Open Orvane");
}

TEST_F(AppTest, BringsAStoredTokenAndItsFiguresIntoWindowAndStatusArea) {
  storeToken("stored");
  launch();
  EXPECT_EQ(statusItem().toolTip, "Orvane · Balance 203 sats");
  EXPECT_EQ(statusItem().image->text, "203 sats");
  EXPECT_EQ(statusMenu().front().title, "Balance 203 sats");
  EXPECT_TRUE(showsText(QStringLiteral("203 sats")));
  EXPECT_TRUE(find<QScrollArea>(QStringLiteral("Workers and history"))->isVisible());
}

TEST_F(AppTest, WaitsForAQuickKeychainButNotForOneThatAsksTheUser) {
  storeToken("stored");
  struct Case {
    ExecutorClock::duration delay;
    ExecutorClock::duration wait;
  };
  for (const auto& [delay, wait] : {Case{30ms, 30ms}, Case{1min, 50ms}}) {
    keychain.delay = delay;
    begin();
    pass(wait - 1ms);
    EXPECT_FALSE(isOnScreen("Orvane"));
    pass(1ms);
    EXPECT_TRUE(isOnScreen("Orvane"));
  }
}

TEST_F(AppTest, ShowsAFailureInOrangeUntilTheNextGoodCycleClearsIt) {
  storeToken("stored");
  transport.on("/profile").fail(HttpFailure::cannotConnectToHost).times(1);
  launch();
  const auto unreachable =
      QStringLiteral("Braiins could not be reached. The last figures stay until the next try.");
  EXPECT_TRUE(showsText(unreachable));
  EXPECT_EQ(statusItem().image->symbolColor, StatusColor::systemOrange);
  pass(301s);
  EXPECT_FALSE(showsText(unreachable));
  EXPECT_EQ(statusItem().image->symbolColor, StatusColor::systemGreen);
}

}  // namespace
}  // namespace orvane::test
