#include <QScrollArea>

#include "shell/app/app_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

TEST_F(AppTest, PresentsTheMainWindowAtLaunchInItsOwnSize) {
  launch();
  ASSERT_TRUE(isOnScreen("Orvane"));
  EXPECT_TRUE(window("Orvane")->isKeyWindow());
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
  EXPECT_THAT(statusMenuTitles(), ElementsAre("Open Orvane", "Refresh Now", "", "Orvane Help",
                                              "About Orvane", "", "Quit Orvane"));
  EXPECT_FALSE(statusMenuItem("Refresh Now").enabled);
}

TEST_F(AppTest, BringsAStoredTokenAndItsFiguresIntoWindowAndStatusArea) {
  storeToken("stored");
  launch();
  EXPECT_EQ(statusItem().toolTip, "Orvane · Balance 203 sats");
  EXPECT_EQ(statusItem().image->text, "203 sats");
  EXPECT_TRUE(showsText(QStringLiteral("203 sats")));
  EXPECT_TRUE(find<QScrollArea>(QStringLiteral("Workers and history"))->isVisible());
  EXPECT_EQ(find<QLineEdit>(QStringLiteral("Braiins API token"))->text(), QStringLiteral("stored"));
  EXPECT_THAT(statusMenuTitles(),
              ElementsAre("Balance 203 sats", "Today 10 sats", "", "Open Orvane", "Refresh Now", "",
                          "Orvane Help", "About Orvane", "", "Quit Orvane"));
  EXPECT_TRUE(statusMenuItem("Refresh Now").enabled);
}

TEST_F(AppTest, WaitsForAQuickKeychainButNotForOneThatAsksTheUser) {
  storeToken("stored");
  keychain.delay = 30ms;
  begin();
  pass(29ms);
  EXPECT_FALSE(isOnScreen("Orvane"));
  pass(1ms);
  EXPECT_TRUE(isOnScreen("Orvane"));

  keychain.delay = 1min;
  begin();
  pass(49ms);
  EXPECT_FALSE(isOnScreen("Orvane"));
  pass(1ms);
  EXPECT_TRUE(isOnScreen("Orvane"));
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

TEST_F(AppTest, RefreshNowAsksBothSourcesAgain) {
  storeToken("stored");
  launch();
  pass(120s);
  transport.clearSent();
  statusMenuItem("Refresh Now").action();
  settle();
  EXPECT_EQ(transport.sentTo("/profile"), 1U);
  press(Qt::Key_R, Qt::ControlModifier);
  pass(60s);
  EXPECT_EQ(transport.sentTo("/profile"), 2U);
}

TEST_F(AppTest, AnUnchangedStatusIsNotDrawnAgain) {
  storeToken("stored");
  launch();
  pass(120s);
  const int before = statusItem().draws;
  pass(1h);
  EXPECT_EQ(statusItem().draws, before);
}

}  // namespace
}  // namespace orvane::test
