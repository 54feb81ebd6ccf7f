#include "shell/app/app_fixture.h"
#include "shell/app/balance_menu_actions.h"
#include "shell/views/about_and_help.h"

namespace orvane::test {
namespace {

class WindowsStory : public AppTest {
 protected:
  void SetUp() override { launch(); }

  [[nodiscard]] bool helpShowsContent() const {
    return widget("Orvane Help").findChild<FennickAppHelpView*>()->isVisible();
  }
  void openHelp() {
    press(Qt::Key_F1);
    ASSERT_TRUE(isOnScreen("Orvane Help"));
    ASSERT_TRUE(helpShowsContent());
  }
  void expectAllHidden() {
    for (const auto* const each : desktop.windows()) {
      EXPECT_FALSE(each->isVisible()) << each->title();
    }
    EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::accessory);
  }
  void focusMainWindow() {
    window("Orvane")->makeKeyAndOrderFront();
    settle();
  }
};

TEST_F(WindowsStory, EveryWayToCloseTheMainWindowHidesAllAndAClickBringsItBack) {
  const std::vector<std::function<void()>> ways{
      [this] { press(Qt::Key_Escape); }, [this] { press(Qt::Key_W, Qt::ControlModifier); },
      [this] { press(Qt::Key_M, Qt::ControlModifier); },
      [this] {
        for (auto* const button : widget("Orvane").findChildren<QPushButton*>()) {
          if (button->text() == QStringLiteral("Close")) { button->click(); }
        }
        settle();
      }};
  for (const auto& close : ways) {
    openHelp();
    focusMainWindow();
    close();
    expectAllHidden();
    statusBar.item.action(DesktopEvent{.type = DesktopEvent::Type::leftMouseUp});
    settle();
    EXPECT_TRUE(isOnScreen("Orvane"));
    EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::regular);
    EXPECT_FALSE(isOnScreen("Orvane Help"));
  }
}

TEST_F(WindowsStory, EscapeWithAModifierOrInTheHelpWindowHidesNothing) {
  for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
    press(Qt::Key_Escape, modifier);
    EXPECT_TRUE(isOnScreen("Orvane"));
  }
  openHelp();
  press(Qt::Key_Escape);
  EXPECT_TRUE(isOnScreen("Orvane"));
  EXPECT_TRUE(isOnScreen("Orvane Help"));
}

TEST_F(WindowsStory, ControlWClosesTheHelpWindowAlone) {
  openHelp();
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(isOnScreen("Orvane Help"));
  EXPECT_TRUE(isOnScreen("Orvane"));
}

TEST_F(WindowsStory, HelpAndAboutFromTheTrayBringTheMainWindowForwardFirst) {
  press(Qt::Key_Escape);
  statusMenuItem("Orvane Help").action();
  settle();
  EXPECT_TRUE(isOnScreen("Orvane"));
  EXPECT_TRUE(isOnScreen("Orvane Help"));
  EXPECT_TRUE(helpShowsContent());
  statusMenuItem("About Orvane").action();
  settle();
  EXPECT_TRUE(window("About Orvane")->isKeyWindow());
  EXPECT_EQ(widget("About Orvane").width(), 470);
}

TEST_F(WindowsStory, EachWindowExistsOnce) {
  openHelp();
  focusMainWindow();
  press(Qt::Key_Question, Qt::ControlModifier);
  EXPECT_EQ(desktop.windows().size(), 2U);
  EXPECT_TRUE(window("Orvane Help")->isKeyWindow());
}

TEST_F(WindowsStory, StartedAgainComesBackFromTheTrayWhole) {
  openHelp();
  focusMainWindow();
  press(Qt::Key_Escape);
  expectAllHidden();
  app->reopen();
  settle();
  EXPECT_TRUE(isOnScreen("Orvane"));
  EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::regular);
  openHelp();
}

TEST_F(WindowsStory, StartedAgainWhileMinimisedIsRestored) {
  window("Orvane")->miniaturize();
  settle();
  app->reopen();
  settle();
  EXPECT_TRUE(isOnScreen("Orvane"));
}

TEST_F(WindowsStory, CommandsOfALauncherAreCarriedOutAndOthersIgnored) {
  app->runAction("no-such-thing");
  app->runAction("show-about");
  settle();
  EXPECT_TRUE(isOnScreen("About Orvane"));
}

TEST_F(WindowsStory, TheWindowManagersCloseEndsTheProgramWithZero) {
  QMetaObject::invokeMethod(
      &widget("Orvane"), [this] { widget("Orvane").close(); }, Qt::QueuedConnection);
  EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST_F(WindowsStory, QuitWaitsForTheTokenToReachTheKeychain) {
  keychain.delay = std::chrono::milliseconds(500);
  auto& field = *find<QLineEdit>(QStringLiteral("Braiins API token"));
  field.setText(QStringLiteral("fresh"));
  Q_EMIT field.returnPressed();
  int ends = 0;
  app->onEnd = [&ends] { ++ends; };
  press(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(ends, 1);
  EXPECT_FALSE(isOnScreen("Orvane"));
  EXPECT_EQ(keptToken(), std::nullopt);
  // The program goes on until the write has ended.
  QMetaObject::invokeMethod(
      &desktop, [this] { executor.advance(std::chrono::seconds(2)); }, Qt::QueuedConnection);
  EXPECT_EQ(QCoreApplication::exec(), 0);
  EXPECT_EQ(keptToken(), "fresh");
}

}  // namespace
}  // namespace orvane::test
