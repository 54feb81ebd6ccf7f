#include <QAction>
#include <QTimer>

#include "shell/app/app_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

class CommandsTest : public AppTest {
 protected:
  /// The application some minutes after its start, with nothing under way.
  void launchWithFigures() {
    storeToken("stored");
    storePayoutAddress(firstAddress);
    launch();
    pass(4min);
    transport.clearSent();
    ends = 0;
    app->onEnd = [this] { ++ends; };
  }

  int ends = 0;
};

TEST_F(CommandsTest, AreCarriedOutWhicheverWayTheyAreGiven) {
  struct Case {
    const char* name;
    std::function<void()> give;
    std::function<bool()> isCarriedOut;
  };
  const auto launcher = [this](const char* name) { return [this, name] { app->runAction(name); }; };
  const auto tray = [this](const char* title) {
    return [this, title] { statusMenuItem(title).action(); };
  };
  const auto menu = [this](const char* title) {
    return [this, title] {
      for (auto* const action : widget("Orvane").findChildren<QAction*>()) {
        if (action->text() == QLatin1String(title)) { action->trigger(); }
      }
    };
  };
  const auto keys = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    return [=, this] { press(key, modifiers); };
  };
  const auto refreshed = [this] {
    return transport.sentTo("pool.test") > 0 && transport.sentTo("explorer.test") > 0;
  };
  const auto opened = [this](const char* title) {
    return [this, title] { return isOnScreen(title) && widget(title).isActiveWindow(); };
  };
  const auto ended = [this] { return ends == 1; };
  const Case cases[] = {
      {"a launcher's refresh", launcher("refresh-now"), refreshed},
      {"a launcher's help", launcher("show-help"), opened("Orvane Help")},
      {"a launcher's about", launcher("show-about"), opened("About Orvane")},
      {"a launcher's quit", launcher("quit"), ended},
      {"the tray's refresh", tray("Refresh Now"), refreshed},
      {"the tray's help", tray("Orvane Help"), opened("Orvane Help")},
      {"the tray's about", tray("About Orvane"), opened("About Orvane")},
      {"the tray's quit", tray("Quit Orvane"), ended},
      {"the window's refresh", menu("Refresh Now"), refreshed},
      {"the window's help", menu("Orvane Help"), opened("Orvane Help")},
      {"the window's about", menu("About Orvane"), opened("About Orvane")},
      {"the window's quit", menu("Quit Orvane"), ended},
      {"Control-R", keys(Qt::Key_R), refreshed},
      {"F1", keys(Qt::Key_F1, {}), opened("Orvane Help")},
      {"Control-?", keys(Qt::Key_Question), opened("Orvane Help")},
      {"Control-Q", keys(Qt::Key_Q), ended},
      {"closing the main window", [this] { widget("Orvane").close(); }, ended},
  };
  for (const auto& [name, give, isCarriedOut] : cases) {
    launchWithFigures();
    ASSERT_FALSE(isCarriedOut()) << name;
    give();
    settle();
    EXPECT_TRUE(isCarriedOut()) << name;
  }
}

TEST_F(CommandsTest, OfALauncherThatNobodyKnowsAreIgnored) {
  launchWithFigures();
  app->runAction("no-such-thing");
  settle();
  EXPECT_EQ(desktop.windows().size(), 1U);
  EXPECT_EQ(ends, 0);
  EXPECT_TRUE(transport.sent().empty());
}

class QuitTest : public AppTest {
 protected:
  /// Quits while a token is on its way to the keychain, which takes `delay`; the program's code.
  int quitWhileWriting(ExecutorClock::duration delay) {
    launch();
    keychain.delay = delay;
    auto& field = *find<QLineEdit>(QStringLiteral("Braiins API token"));
    field.setText(QStringLiteral("fresh"));
    Q_EMIT field.returnPressed();
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(isOnScreen("Orvane")) << "gone for the user at once";
    EXPECT_EQ(keptToken(), std::nullopt);
    QMetaObject::invokeMethod(&desktop, [this] { executor.advance(2s); }, Qt::QueuedConnection);
    QTimer tooLate;
    QObject::connect(&tooLate, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    tooLate.start(2s);
    return QCoreApplication::exec();
  }
};

TEST_F(QuitTest, WaitsForTheTokenToReachTheKeychain) {
  EXPECT_EQ(quitWhileWriting(500ms), 0);
  EXPECT_EQ(keptToken(), "fresh");
}

TEST_F(QuitTest, WaitsNoLongerThanTwoSeconds) {
  EXPECT_EQ(quitWhileWriting(1h), 0);
  EXPECT_EQ(keptToken(), std::nullopt);
}

}  // namespace
}  // namespace orvane::test
