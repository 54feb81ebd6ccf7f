#include "shell/app/app_fixture.h"

namespace orvane::test { namespace {

TEST_F(AppTest, PresentsTheMainWindowAtLaunchInItsOwnSize) {
  launch();
  ASSERT_TRUE(isOnScreen("Orvane"));
  EXPECT_TRUE(widget("Orvane").isActiveWindow());
  EXPECT_EQ(widget("Orvane").size(), QSize(640, 860));
  EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::regular);
  EXPECT_EQ(defaults.boolean("NSQuitAlwaysKeepsWindows"), false);
  EXPECT_EQ(desktop.windows().size(), 1U);
}

TEST(BalanceAppDelegateTest, LooksForItsWindowForASecond) {
  CallLog log;
  VirtualExecutor executor;
  FakeApplication application(log);
  MemoryDefaults defaults;
  BalanceAppDelegate delegate(executor, application, defaults);
  delegate.didFinishLaunching();
  executor.advance(1s);
  EXPECT_EQ(executor.pendingTimers(), 0U) << "it gives up";
  delegate.didFinishLaunching();
  executor.advance(999ms);
  application.addWindow("Orvane");
  log.clear();
  executor.advance(1ms);
  EXPECT_EQ(log, (CallLog{"policy regular", "unhide", "Orvane: order front", "activate"}));
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

TEST_F(AppTest, WhatIsAskedForDuringTheLaunchWaitsForItsEnd) {
  storeToken("stored");
  keychain.delay = 30ms;
  begin();
  app->reopen();
  app->runAction("show-help");
  settle();
  EXPECT_FALSE(isOnScreen("Orvane") || isOnScreen("Orvane Help"));
  pass(30ms);
  EXPECT_TRUE(isOnScreen("Orvane"));
  EXPECT_EQ(QApplication::activeWindow(), &widget("Orvane Help"));
}

TEST_F(AppTest, ATokenThatArrivesLateFillsItsFieldUnlessSomethingIsTypedThere) {
  storeToken("stored");
  for (const auto& typed : {QString(), QStringLiteral("new")}) {
    keychain.condition = MemoryKeychain::Condition::locked;
    launch();
    ASSERT_TRUE(keychain.isPrompting());
    tokenField().setText(typed);
    if (typed.isEmpty()) { Q_EMIT tokenField().returnPressed(); }  // there is nothing to save
    keychain.answerPrompt(true);
    settle();
    EXPECT_EQ(tokenField().text(), typed.isEmpty() ? QStringLiteral("stored") : typed);
    EXPECT_EQ(keptToken(), "stored");
  }
}

TEST_F(AppTest, AQuietStartIsInTheStatusAreaAloneOrMinimisedWhereNobodyDrawsIt) {
  for (const bool hasHost : {true, false}) {
    begin();
    statusBar.item.hasHost = hasHost;
    app->runAction("start-quietly");
    pass(9s);
    EXPECT_FALSE(isOnScreen("Orvane"));
    EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::accessory);
    EXPECT_EQ(statusBar.item.toolTip, "Orvane · No API token or address");
    pass(1s);
    EXPECT_EQ(desktop.windowTitled("Orvane")->isMiniaturized(), !hasHost);
    if (hasHost) {
      chooseFromTray("Open Orvane");
    } else {
      app->reopen();
    }
    settle();
    EXPECT_TRUE(isOnScreen("Orvane"));
    app->runAction("start-quietly");
    pass(10s);
    EXPECT_TRUE(isOnScreen("Orvane")) << "it has started";
  }
  begin();
  app->runAction("start-quietly");
  app->reopen();
  settle();
  EXPECT_TRUE(isOnScreen("Orvane")) << "somebody wants to see it";
}

TEST_F(AppTest, WhereNoTrayIsTheFirstClosingTellsWhereTheProgramIs) {
  for (int start = 0; start < 2; ++start) {
    launch();
    statusBar.item.hasHost = false;
    for (int time = 0; time < 2; ++time) {
      press(Qt::Key_W, Qt::ControlModifier);
      EXPECT_TRUE(desktop.windowTitled("Orvane")->isMiniaturized());
      app->reopen();
      settle();
      EXPECT_TRUE(isOnScreen("Orvane"));
    }
    ASSERT_EQ(notifications.received().size(), 1U);
  }
  EXPECT_EQ(notifications.received()[0].title, "Orvane is still running");
}

TEST_F(AppTest, TheStatusAreaFollowsTheAccount) {
  storeToken("stored");
  transport.on("/profile").fail(HttpFailure::cannotConnectToHost).times(1);
  launch();
  EXPECT_EQ(statusBar.item.image->symbolColor, StatusColor::systemOrange);
  pass(301s);
  EXPECT_EQ(statusBar.item.image->symbolColor, StatusColor::systemGreen);
  EXPECT_EQ(statusBar.item.image->text, "203 sats");
  EXPECT_EQ(statusBar.item.toolTip, "Orvane · Balance 203 sats");
}

}}  // namespace orvane::test
