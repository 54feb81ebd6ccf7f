#include <QLabel>
#include <QScreen>
#include <QSignalSpy>
#include "shell/app/app_fixture.h"
#include "shell/views/about_and_help.h"

namespace orvane::test { namespace {

constexpr int frameWidths = 8;

class WindowsStory : public AppTest {
 protected:
  void SetUp() override { launch(); }

  QWidget& open(const char* action, const char* title) {
    app->runAction(action);
    settle();
    EXPECT_TRUE(isOnScreen(title));
    return widget(title);
  }
  [[nodiscard]] bool helpShowsContent() const {
    return widget("Orvane Help").findChild<FennickAppHelpView*>()->isVisible();
  }
};

TEST_F(WindowsStory, EveryKeyToCloseTheMainWindowHidesAllAndTheTrayBringsItBack) {
  for (const auto& [key, modifiers] : {std::pair(Qt::Key_Escape, Qt::NoModifier),
                                       {Qt::Key_W, Qt::ControlModifier},
                                       {Qt::Key_M, Qt::ControlModifier}}) {
    open("show-help", "Orvane Help");
    EXPECT_TRUE(helpShowsContent()) << key;
    desktop.windowTitled("Orvane")->makeKeyAndOrderFront();
    settle();
    press(key, modifiers);
    for (const auto* const each : desktop.windows()) {
      EXPECT_FALSE(each->isVisible()) << key << each->title();
    }
    chooseFromTray("Open Orvane");
    EXPECT_TRUE(isOnScreen("Orvane")) << key;
    EXPECT_FALSE(isOnScreen("Orvane Help")) << key;
  }
  EXPECT_EQ(desktop.windows().size(), 2U) << "each exists once";
}

TEST_F(WindowsStory, EscapeClosesHelpAndAboutAlone) {
  for (const auto& [action, title] :
       {std::pair("show-help", "Orvane Help"), {"show-about", "About Orvane"}}) {
    open(action, title);
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOnScreen(title));
    EXPECT_TRUE(isOnScreen("Orvane"));
  }
}

TEST_F(WindowsStory, HelpFromTheTrayBringsTheMainWindowForwardFirst) {
  press(Qt::Key_Escape);
  chooseFromTray("Orvane Help");
  EXPECT_TRUE(isOnScreen("Orvane"));
  EXPECT_TRUE(helpShowsContent());
}

TEST_F(WindowsStory, ComeUpInTheirSizeInTheMiddleOfTheMainWindow) {
  auto& main = widget("Orvane");
  main.move(70, 30);
  const auto& help = open("show-help", "Orvane Help");
  const auto& about = open("show-about", "About Orvane");
  EXPECT_EQ(help.size(), QSize(720, 650));
  EXPECT_EQ(about.width(), 470);
  EXPECT_EQ(about.minimumSize(), about.maximumSize()) << "it is as large as its content";
  for (const auto* const window : {&help, &about}) {
    const auto apart = window->geometry().center() - main.geometry().center();
    EXPECT_LE(apart.manhattanLength(), frameWidths) << window->windowTitle().toStdString();
  }
}

TEST_F(WindowsStory, AreKeptOnTheScreen) {
  widget("Orvane").move(-400, 800);
  const auto apart = open("show-help", "Orvane Help").geometry().bottomLeft() -
                     widget("Orvane").screen()->availableGeometry().bottomLeft();
  EXPECT_LE(apart.manhattanLength(), frameWidths) << apart.x() << ' ' << apart.y();
}

TEST_F(WindowsStory, TheMainWindowWidensForItsSecondColumnOnBothSidesAlike) {
  auto& main = widget("Orvane");
  main.setGeometry(500, 30, 640, 900);
  settle();
  tokenField().setText(QStringLiteral("fresh"));
  Q_EMIT tokenField().returnPressed();
  settle();
  EXPECT_GE(main.width(), 1190);
  EXPECT_EQ(main.geometry(), QRect(820 - main.width() / 2, 30, main.width(), 900)) << main.x();
}

TEST_F(WindowsStory, TheMainWindowComesBackAtTheNextStartAsTheUserLeftIt) {
  const auto quitAndStart = [this] {
    press(Qt::Key_Q, Qt::ControlModifier);
    launch();
  };
  const QRect own = widget("Orvane").geometry();
  quitAndStart();
  EXPECT_EQ(widget("Orvane").geometry(), own);
  EXPECT_EQ(defaults.texts("window.size"), std::nullopt) << "nobody has decided it";

  const auto userPlaces = [this](const QRect& place) {  // not asked for by the program
    widget("Orvane").windowHandle()->setGeometry(place);
    return QTest::qWaitFor([&] { return defaults.texts("window.size").has_value(); }, 1000);
  };
  ASSERT_TRUE(userPlaces({210, 73, 700, 800}) || userPlaces({211, 73, 701, 801}));
  const QRect left(150, 80, 711, 822);
  userPlaces(left);
  for (int start = 0; start < 2; ++start) {
    quitAndStart();
    EXPECT_EQ(widget("Orvane").geometry(), left);
  }
  defaults.setTexts("window.size", {"wide", "-5"});
  defaults.setTexts("window.centre", {"99999999999999", "1"});
  launch();
  EXPECT_EQ(widget("Orvane").geometry(), own);
}

TEST_F(WindowsStory, WithoutPermissionToComeForwardOneBehindOthersAppearsAnew) {
  auto& field = tokenField();
  field.setText(QStringLiteral("half"));
  field.setFocus();
  struct Case {
    bool isBehind;
    const char* token;
    int changes;
  };
  for (const auto& [isBehind, token, changes] :
       {Case{true, "", 2}, Case{true, "given", 0}, Case{false, "", 0}}) {
    QWindow other;  // takes the keyboard from the program
    other.setVisible(isBehind);
    settle();
    other.hide();
    settle();
    const QSignalSpy seen(widget("Orvane").windowHandle(), &QWindow::visibleChanged);
    desktop.setActivationToken(token);
    statusBar.item.action(DesktopEvent{.type = DesktopEvent::Type::leftMouseUp});
    settle();
    EXPECT_EQ(seen.count(), changes) << isBehind << token;
    EXPECT_TRUE(field.hasFocus() && field.text() == u"half");
  }
}

TEST_F(WindowsStory, TheAboutWindowNamesTheVersion) {
  const auto labels = open("show-about", "About Orvane").findChildren<QLabel*>();
  EXPECT_EQ(std::ranges::count(labels, QStringLiteral("Version 1.0.0"), &QLabel::text), 1);
}

TEST_F(WindowsStory, StartedAgainTheMainWindowComesBackFromTheTaskBar) {
  desktop.windowTitled("Orvane")->miniaturize();
  settle();
  app->reopen();
  settle();
  EXPECT_TRUE(isOnScreen("Orvane"));
}

}}  // namespace orvane::test
