#include "shell/menu_bar/runtime_fixture.h"
#include "shell/menu_bar/window_visibility.h"

namespace orvane::test { namespace {

using BackgroundRuntimeTest = RuntimeFixture;
using Type = DesktopEvent::Type;
using namespace std::chrono_literals;

DesktopEvent key(std::string characters, ModifierFlags modifiers = {}) {
  const bool isEscape = characters == "\x1b";
  return {.type = Type::keyDown,
          .modifiers = modifiers,
          .keyCode = isEscape ? DesktopEvent::escapeKeyCode : std::uint16_t{0},
          .charactersIgnoringModifiers = std::move(characters)};
}

TEST_F(BackgroundRuntimeTest, AttachingAgainMakesNothingTwice) {
  attach();
  EXPECT_EQ(statusBar.created, 1);
  EXPECT_EQ(executor.pendingTimers(), 1U);
}

TEST_F(BackgroundRuntimeTest, HidingLeavesOnlyTheStatusAreaItsWindows) {
  application.addWindow("item", DesktopWindow::statusBarLevel);
  application.addWindow("floating", 3).miniaturize();
  log.clear();
  runtime->hideMainWindow();
  executor.runUntilIdle();
  EXPECT_EQ(log, (CallLog{"policy accessory", "Orvane Help: order out", "Orvane: order out",
                          "floating: deminiaturize", "floating: order out", "policy accessory"}))
      << "the policy is set once more on the next turn";
  EXPECT_TRUE(runtime->isMenuBarOnly());
  EXPECT_FALSE(runtime->isMainWindowVisible());
}

TEST_F(BackgroundRuntimeTest, AnyClickButTheRightOneBringsApplicationAndWindowBack) {
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

TEST_F(BackgroundRuntimeTest, WithoutAHostTheWindowStaysMinimisedUntilThereIsOne) {
  int told = 0;
  runtime->onKeptWithoutHost = [&told] { ++told; };
  statusBar.item.hasHost = false;
  runtime->showMainWindow();
  log.clear();
  runtime->hideMainWindow();
  EXPECT_EQ(log, (CallLog{"Orvane Help: order out", "Orvane: miniaturize"}));
  EXPECT_FALSE(runtime->isMenuBarOnly());
  EXPECT_EQ(told, 1);

  statusBar.item.hasHost = true;
  executor.advance(30s);
  EXPECT_TRUE(runtime->isMenuBarOnly());
  EXPECT_EQ(log.back(), "policy accessory");
  EXPECT_FALSE(window.isMiniaturized() || window.isVisible());

  // What the user has brought back meanwhile stays.
  statusBar.item.hasHost = false;
  runtime->showMainWindow();
  runtime->hideMainWindow();
  window.deminiaturize();
  statusBar.item.hasHost = true;
  executor.advance(1min);
  window.miniaturize();
  executor.advance(1min);
  EXPECT_FALSE(runtime->isMenuBarOnly());
}

TEST_F(BackgroundRuntimeTest, AHostThatGoesForGoodStrandsNobodyAndOneThatIsBackSoonChangesNothing) {
  runtime->hideMainWindow();
  statusBar.item.hasHost = false;
  executor.advance(31s);
  statusBar.item.hasHost = true;
  executor.advance(1min);
  EXPECT_TRUE(runtime->isMenuBarOnly() && !window.isMiniaturized());
  statusBar.item.hasHost = false;
  executor.advance(1min);
  EXPECT_TRUE(!runtime->isMenuBarOnly() && window.isMiniaturized());
  statusBar.item.hasHost = true;
  executor.advance(30s);
  EXPECT_TRUE(runtime->isMenuBarOnly() && !window.isMiniaturized());
}

TEST_F(BackgroundRuntimeTest, ARightClickShowsTheMenuAndTakesItAwayAgain) {
  statusBar.item.action(DesktopEvent{.type = Type::rightMouseUp});
  EXPECT_FALSE(statusBar.item.poppedUp) << "before there is a menu";
  runtime->statusMenuProvider = [] { return Menu{{MenuItem{.title = "Quit Orvane"}}}; };
  statusBar.item.action(DesktopEvent{.type = Type::rightMouseUp});
  ASSERT_TRUE(statusBar.item.poppedUp);
  EXPECT_EQ(statusBar.item.poppedUp->items[0].title, "Quit Orvane");
  EXPECT_FALSE(statusBar.item.menu) << "the next left click would open it";
  EXPECT_EQ(log, CallLog());
}

// An address that came between two equal states had its row in the menu half a minute late.
TEST_F(BackgroundRuntimeTest, AnEqualStateIsNotDrawnAgainButTheMenuIsLookedAt) {
  runtime->updateStatus(true, "Balance", false);
  const int draws = statusBar.item.draws;
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(statusBar.item.draws, draws);
  EXPECT_EQ(statusBar.item.menuNotices, 1);
}

TEST_F(BackgroundRuntimeTest, NothingOfItRemainsAfterItsEndAndCallbacksDoNothing) {
  runtime->updateStatus(true, "Balance", false);
  const auto action = statusBar.item.action;
  runtime->hideMainWindow();
  log.clear();
  runtime.reset();
  EXPECT_FALSE(statusBar.item.exists);
  EXPECT_EQ(executor.pendingTimers(), 0U);
  executor.runUntilIdle();
  action(std::nullopt);
  application.press(key("\x1b"));
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(log, CallLog());
}

TEST_F(BackgroundRuntimeTest, AWindowHasItsContentWhileItIsOnScreenWithTheApplication) {
  bool told = false;
  WindowVisibility visibility(runtime, [&] { told = visibility.showsContent(); });
  EXPECT_FALSE(visibility.showsContent()) << "without a window";
  visibility.handleWindow(&help);
  struct Step {
    const char* name;
    std::function<void()> act;
    bool showsContent;
  };
  const auto show = [this] { help.makeKeyAndOrderFront(); };
  const auto minimise = [this] { help.miniaturize(); };
  const auto restore = [this] { help.deminiaturize(); };
  const auto hideAll = [this] { runtime->hideMainWindow(); };
  const auto showMain = [this] { runtime->showMainWindow(); };
  for (const auto& [name, act, showsContent] :
       std::vector<Step>{{"shown", show, true},
                         {"minimised", minimise, false},
                         {"restored", restore, true},
                         {"closed", [this] { help.performClose(); }, false},
                         {"shown again", show, true},
                         {"hidden with the application", hideAll, false},
                         {"the main window is back", showMain, false},
                         {"shown beside it", show, true},
                         {"hidden once more", hideAll, false},
                         {"opened while the application is in the status area", show, false},
                         {"handed over there", [&] { visibility.handleWindow(&help); }, false},
                         {"minimised there", minimise, false},
                         {"restored there", restore, false},
                         {"the application is back", showMain, true}}) {
    act();
    EXPECT_EQ(visibility.showsContent(), showsContent) << name;
    EXPECT_EQ(told, showsContent) << name;
  }
}

}}  // namespace orvane::test
