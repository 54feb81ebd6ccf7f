#include <QScreen>

#include "shell/app/app_fixture.h"
#include "shell/views/about_and_help.h"

namespace orvane::test {
namespace {

constexpr int frameWidths = 8;

class WindowsStory : public AppTest {
 protected:
  void SetUp() override { launch(); }

  void open(const char* action, const char* title) {
    app->runAction(action);
    settle();
    ASSERT_TRUE(isOnScreen(title));
  }
  [[nodiscard]] bool helpShowsContent() const {
    return widget("Orvane Help").findChild<FennickAppHelpView*>()->isVisible();
  }
  void focusMainWindow() {
    desktop.windowTitled("Orvane")->makeKeyAndOrderFront();
    settle();
  }
  void expectAllHidden() {
    for (const auto* const each : desktop.windows()) {
      EXPECT_FALSE(each->isVisible()) << each->title();
    }
    EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::accessory);
  }
};

TEST_F(WindowsStory, EveryWayToCloseTheMainWindowHidesAllAndAClickBringsItBack) {
  const std::vector<std::function<void()>> ways{
      [this] { press(Qt::Key_Escape); }, [this] { press(Qt::Key_W, Qt::ControlModifier); },
      [this] { press(Qt::Key_M, Qt::ControlModifier); },
      [this] { button(QStringLiteral("Close"))->click(); }};
  for (const auto& close : ways) {
    open("show-help", "Orvane Help");
    focusMainWindow();
    close();
    settle();
    expectAllHidden();
    statusBar.item.action(DesktopEvent{.type = DesktopEvent::Type::leftMouseUp});
    settle();
    EXPECT_TRUE(isOnScreen("Orvane"));
    EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::regular);
    EXPECT_FALSE(isOnScreen("Orvane Help"));
  }
}

TEST_F(WindowsStory, HelpFromTheTrayBringsTheMainWindowForwardFirst) {
  press(Qt::Key_Escape);
  statusMenuItem("Orvane Help").action();
  settle();
  EXPECT_TRUE(isOnScreen("Orvane"));
  EXPECT_TRUE(widget("Orvane Help").isActiveWindow());
  EXPECT_TRUE(helpShowsContent());
}

TEST_F(WindowsStory, HelpShowsItsContentWhileItsWindowIsOnScreen) {
  open("show-help", "Orvane Help");
  EXPECT_TRUE(helpShowsContent());
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(isOnScreen("Orvane Help"));
  EXPECT_TRUE(isOnScreen("Orvane"));
  open("show-help", "Orvane Help");
  EXPECT_TRUE(helpShowsContent());
  EXPECT_EQ(desktop.windows().size(), 2U) << "each exists once";
}

TEST_F(WindowsStory, ComeUpInTheirSizeInTheMiddleOfTheMainWindow) {
  auto& main = widget("Orvane");
  main.move(70, 30);
  open("show-help", "Orvane Help");
  open("show-about", "About Orvane");
  const auto& help = widget("Orvane Help");
  const auto& about = widget("About Orvane");
  EXPECT_EQ(help.size(), QSize(720, 650));
  EXPECT_EQ(about.width(), 470);
  EXPECT_EQ(about.minimumSize(), about.maximumSize()) << "it is as large as its content";
  for (const auto* const window : {&help, &about}) {
    const auto apart = window->geometry().center() - main.geometry().center();
    EXPECT_LE(apart.manhattanLength(), frameWidths) << window->windowTitle().toStdString();
  }
}

TEST_F(WindowsStory, AreKeptOnTheScreen) {
  widget("Orvane").move(-400, 400);
  open("show-help", "Orvane Help");
  const auto apart = widget("Orvane Help").geometry().bottomLeft() -
                     widget("Orvane").screen()->availableGeometry().bottomLeft();
  EXPECT_LE(apart.manhattanLength(), frameWidths) << apart.x() << ' ' << apart.y();
}

TEST_F(WindowsStory, TheAboutWindowNamesTheVersion) {
  open("show-about", "About Orvane");
  EXPECT_TRUE(showsText(QStringLiteral("Version 1.0.0"), "About Orvane"));
}

TEST_F(WindowsStory, StartedAgainComesBackFromTheTrayAndFromTheTaskBar) {
  open("show-help", "Orvane Help");
  focusMainWindow();
  press(Qt::Key_Escape);
  app->reopen();
  settle();
  EXPECT_TRUE(isOnScreen("Orvane"));
  EXPECT_EQ(desktop.activationPolicy(), ActivationPolicy::regular);
  desktop.windowTitled("Orvane")->miniaturize();
  settle();
  app->reopen();
  settle();
  EXPECT_TRUE(isOnScreen("Orvane"));
}

}  // namespace
}  // namespace orvane::test
