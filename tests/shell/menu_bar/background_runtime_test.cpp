#include "shell/menu_bar/key_presses.h"
#include "shell/menu_bar/runtime_fixture.h"

namespace orvane::test {
namespace {

using BackgroundRuntimeTest = RuntimeFixture;

TEST_F(BackgroundRuntimeTest, NothingHappensBeforeTheTitleIsKnown) {
  runtime->showMainWindow();
  runtime->hideMainWindow();
  EXPECT_TRUE(runtime->windowShouldClose(window));
  EXPECT_EQ(log, CallLog());
  EXPECT_TRUE(runtime->isMainWindowVisible());
  EXPECT_FALSE(runtime->isMenuBarOnly());
}

TEST_F(BackgroundRuntimeTest, AttachingTakesTheFirstWindowWithTheTitleOnceOnTheNextTurn) {
  auto& second = application.addWindow("Orvane");
  runtime->attachMainWindow("Orvane");
  EXPECT_EQ(window.delegate(), nullptr);
  attach();
  EXPECT_EQ(window.delegate(), runtime);
  EXPECT_EQ(second.delegate(), nullptr);
  EXPECT_EQ(statusBar.created, 1);
  EXPECT_EQ(application.installedMonitors(), 2U);
  EXPECT_EQ(executor.pendingTimers(), 1U);
}

TEST_F(BackgroundRuntimeTest, HidingLeavesOnlyTheStatusAreaItsWindows) {
  application.addWindow("item", DesktopWindow::statusBarLevel);
  application.addWindow("floating", 3).miniaturize();
  attach();
  runtime->hideMainWindow();
  const CallLog expected{"policy accessory", "Orvane Help: order out", "Orvane: order out",
                         "floating: deminiaturize", "floating: order out"};
  EXPECT_EQ(log, expected);
  EXPECT_TRUE(runtime->isMenuBarOnly());
  EXPECT_FALSE(runtime->isMainWindowVisible());
  log.clear();
  executor.runUntilIdle();
  EXPECT_EQ(log, CallLog{"policy accessory"}) << "the policy is set once more afterwards";
}

TEST_F(BackgroundRuntimeTest, ShowingBringsApplicationAndWindowBack) {
  attach();
  runtime->hideMainWindow();
  executor.runUntilIdle();
  window.miniaturize();
  log.clear();
  runtime->showMainWindow();
  EXPECT_EQ(log, (CallLog{"policy regular", "unhide", "Orvane: deminiaturize",
                          "Orvane: order front", "activate"}));
  EXPECT_FALSE(runtime->isMenuBarOnly());
  EXPECT_TRUE(runtime->isMainWindowVisible());
}

TEST_F(BackgroundRuntimeTest, MiniaturizingIsFollowedForTheMainWindowAlone) {
  attach();
  help.setDelegate(runtime);
  help.miniaturize();
  EXPECT_TRUE(runtime->isMainWindowVisible());
  window.miniaturize();
  EXPECT_FALSE(runtime->isMainWindowVisible());
  help.deminiaturize();
  EXPECT_FALSE(runtime->isMainWindowVisible());
  window.deminiaturize();
  EXPECT_TRUE(runtime->isMainWindowVisible());
  window.miniaturize();
  runtime->hideMainWindow();  // which restores the window to take it off the screen
  EXPECT_FALSE(runtime->isMainWindowVisible());
}

TEST_F(BackgroundRuntimeTest, ObserversHearEachChangeAndNothingElse) {
  attach();
  int heard = 0;
  const auto observer = runtime->observe([&heard] { ++heard; });
  runtime->showMainWindow();
  EXPECT_EQ(heard, 0);
  runtime->hideMainWindow();
  EXPECT_EQ(heard, 2) << "one for each of the two fields";
  runtime->hideMainWindow();
  EXPECT_EQ(heard, 2);
}

TEST_F(BackgroundRuntimeTest, OnlyItsKeysHideTheMainWindowWhichNeverCloses) {
  struct Case {
    DesktopEvent event;
    bool isSwallowed;         ///< by the monitors, while the main window has the keys
    bool hidesInsteadOfQuit;  ///< where it is what asks the window to close
  };
  const std::vector<Case> cases{
      {escape(), true, true},
      {command("m"), true, false},
      {command("M"), true, false},
      {keyDown("m", {.control = true, .option = true}), true, false},
      {command("w"), false, true},
      {keyDown("W", {.shift = true, .control = true}), false, true},
      {keyDown("m"), false, false},
      {keyDown("m", {.meta = true}), false, false},
      {keyDown("w"), false, false},
      {command("q"), false, false},
      {escape({.shift = true}), false, false},
      {escape({.control = true}), false, false},
      {escape({.option = true}), false, false},
      {escape({.meta = true}), false, false},
      {leftClick(), false, false},
  };
  for (const auto& [event, isSwallowed, hidesInsteadOfQuit] : cases) {
    attach();
    runtime->showMainWindow();
    EXPECT_EQ(application.press(event), isSwallowed) << event.charactersIgnoringModifiers;
    EXPECT_EQ(runtime->isMenuBarOnly(), isSwallowed);

    attach();
    application.setCurrentEvent(event);
    EXPECT_TRUE(runtime->windowShouldClose(help));
    EXPECT_EQ(log, CallLog());
    EXPECT_FALSE(runtime->windowShouldClose(window));
    EXPECT_EQ(log.front(), hidesInsteadOfQuit ? "policy accessory" : "terminate")
        << event.charactersIgnoringModifiers;
  }
  runtime->showMainWindow();
  window.resignKey();
  EXPECT_FALSE(application.press(escape())) << "in the help window";

  attach();
  application.setCurrentEvent(std::nullopt);  // the window manager's close control
  EXPECT_FALSE(runtime->windowShouldClose(window));
  EXPECT_EQ(log, CallLog{"terminate"});
}

TEST_F(BackgroundRuntimeTest, ALeftClickOrNoEventBringsTheWindowBack) {
  attach();
  for (const auto& event : {std::optional(leftClick()), std::optional<DesktopEvent>()}) {
    runtime->hideMainWindow();
    statusBar.item.action(event);
    EXPECT_FALSE(runtime->isMenuBarOnly());
    EXPECT_TRUE(window.isVisible());
  }
}

TEST_F(BackgroundRuntimeTest, ARightClickShowsTheMenuAndTakesItAwayAgain) {
  attach();
  statusBar.item.action(rightClick());
  EXPECT_FALSE(statusBar.item.poppedUp) << "without a provider";
  runtime->statusMenuProvider = [] { return std::optional<Menu>(); };
  statusBar.item.action(rightClick());
  EXPECT_FALSE(statusBar.item.poppedUp) << "without a menu";

  runtime->statusMenuProvider = [] { return Menu{{MenuItem{.title = "Quit Orvane"}}}; };
  statusBar.item.action(rightClick());
  ASSERT_TRUE(statusBar.item.poppedUp);
  EXPECT_EQ(statusBar.item.poppedUp->items[0].title, "Quit Orvane");
  EXPECT_FALSE(statusBar.item.menu) << "the next left click would open it";
  EXPECT_EQ(log, CallLog());
}

TEST_F(BackgroundRuntimeTest, CallbacksAfterItsEndDoNothing) {
  attach();
  const auto action = statusBar.item.action;
  runtime->hideMainWindow();
  runtime->attachMainWindow("Orvane");
  log.clear();
  runtime.reset();
  executor.runUntilIdle();
  action(leftClick());
  EXPECT_EQ(log, CallLog());
}

}  // namespace
}  // namespace orvane::test
