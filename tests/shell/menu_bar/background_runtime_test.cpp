#include "shell/menu_bar/runtime_fixture.h"

namespace orvane::test {
namespace {

using BackgroundRuntimeTest = RuntimeFixture;
using Type = DesktopEvent::Type;

const DesktopEvent rightClick{.type = Type::rightMouseUp};

DesktopEvent key(std::string characters, ModifierFlags modifiers = {}) {
  const bool isEscape = characters == "\x1b";
  return {.type = Type::keyDown,
          .modifiers = modifiers,
          .keyCode = isEscape ? DesktopEvent::escapeKeyCode : std::uint16_t{0},
          .charactersIgnoringModifiers = std::move(characters)};
}

TEST_F(BackgroundRuntimeTest, NothingHappensBeforeTheTitleIsKnown) {
  runtime->showMainWindow();
  runtime->hideMainWindow();
  EXPECT_TRUE(runtime->windowShouldClose(window));
  EXPECT_EQ(log, CallLog());
  EXPECT_TRUE(runtime->isMainWindowVisible());
  EXPECT_FALSE(runtime->isMenuBarOnly());
}

TEST_F(BackgroundRuntimeTest, AttachingTwiceTakesTheFirstWindowWithTheTitleAndMakesNothingTwice) {
  auto& second = application.addWindow("Orvane");
  runtime->attachMainWindow("Orvane");
  EXPECT_EQ(window.delegate(), nullptr) << "only on the next turn";
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
  executor.runUntilIdle();
  EXPECT_EQ(log, (CallLog{"policy accessory", "Orvane Help: order out", "Orvane: order out",
                          "floating: deminiaturize", "floating: order out", "policy accessory"}))
      << "the policy is set once more on the next turn";
  EXPECT_TRUE(runtime->isMenuBarOnly());
  EXPECT_FALSE(runtime->isMainWindowVisible());
}

TEST_F(BackgroundRuntimeTest, AnyClickButTheRightOneBringsApplicationAndWindowBack) {
  attach();
  runtime->hideMainWindow();
  executor.runUntilIdle();
  window.miniaturize();
  log.clear();
  statusBar.item.action(std::nullopt);  // not every host says which
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
  help.deminiaturize();
  EXPECT_FALSE(runtime->isMainWindowVisible());
  window.deminiaturize();
  EXPECT_TRUE(runtime->isMainWindowVisible());
  window.miniaturize();
  runtime->hideMainWindow();  // which restores the window to take it off the screen
  EXPECT_FALSE(runtime->isMainWindowVisible());
}

TEST_F(BackgroundRuntimeTest, OnlyItsKeysHideTheMainWindowWhichNeverCloses) {
  struct Case {
    const char* name;
    std::optional<DesktopEvent> event;
    bool isSwallowed;         ///< by the monitors, while the main window has the keys
    bool hidesInsteadOfQuit;  ///< where it is what asks the window to close
  };
  const std::vector<Case> cases{
      {"Escape", key("\x1b"), true, true},
      {"Control-M", key("m", {.control = true}), true, false},
      {"Control-M, capital", key("M", {.control = true}), true, false},
      {"Control-Alt-M", key("m", {.control = true, .option = true}), true, false},
      {"Control-W", key("w", {.control = true}), false, true},
      {"Control-Shift-W", key("W", {.shift = true, .control = true}), false, true},
      {"M", key("m"), false, false},
      {"Meta-M", key("m", {.meta = true}), false, false},
      {"W", key("w"), false, false},
      {"Control-Q", key("q", {.control = true}), false, false},
      {"Shift-Escape", key("\x1b", {.shift = true}), false, false},
      {"Control-Escape", key("\x1b", {.control = true}), false, false},
      {"Alt-Escape", key("\x1b", {.option = true}), false, false},
      {"Meta-Escape", key("\x1b", {.meta = true}), false, false},
      {"a click", DesktopEvent{.type = Type::leftMouseUp}, false, false},
      {"the window manager's close control", std::nullopt, false, false},
  };
  for (const auto& [name, event, isSwallowed, hidesInsteadOfQuit] : cases) {
    runtime->showMainWindow();
    attach();
    application.setCurrentEvent(event);
    EXPECT_TRUE(runtime->windowShouldClose(help)) << name;
    EXPECT_EQ(log, CallLog()) << name;
    EXPECT_FALSE(runtime->windowShouldClose(window)) << name;
    EXPECT_EQ(log.front(), hidesInsteadOfQuit ? "policy accessory" : "terminate") << name;
    if (!event) { continue; }
    runtime->showMainWindow();
    EXPECT_EQ(application.press(*event), isSwallowed) << name;
    EXPECT_EQ(runtime->isMenuBarOnly(), isSwallowed) << name;
    runtime->showMainWindow();
    window.resignKey();
    EXPECT_FALSE(application.press(*event)) << name << " in the help window";
  }
}

TEST_F(BackgroundRuntimeTest, ARightClickShowsTheMenuThereIsAndTakesItAwayAgain) {
  attach();
  statusBar.item.action(rightClick);
  EXPECT_FALSE(statusBar.item.poppedUp) << "without a provider";
  runtime->statusMenuProvider = [] { return std::optional<Menu>(); };
  statusBar.item.action(rightClick);
  EXPECT_FALSE(statusBar.item.poppedUp) << "without a menu";

  runtime->statusMenuProvider = [] { return Menu{{MenuItem{.title = "Quit Orvane"}}}; };
  statusBar.item.action(rightClick);
  ASSERT_TRUE(statusBar.item.poppedUp);
  EXPECT_EQ(statusBar.item.poppedUp->items[0].title, "Quit Orvane");
  EXPECT_FALSE(statusBar.item.menu) << "the next left click would open it";
  EXPECT_EQ(log, CallLog());
}

TEST_F(BackgroundRuntimeTest, NothingOfItRemainsAfterItsEndAndCallbacksDoNothing) {
  attach();
  runtime->updateStatus(true, "Balance", false);
  const auto action = statusBar.item.action;
  runtime->hideMainWindow();
  log.clear();
  runtime.reset();
  EXPECT_FALSE(statusBar.item.exists);
  EXPECT_EQ(executor.pendingTimers(), 0U);
  EXPECT_EQ(application.installedMonitors(), 0U);
  executor.runUntilIdle();
  action(std::nullopt);
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(log, CallLog());
}

}  // namespace
}  // namespace orvane::test
