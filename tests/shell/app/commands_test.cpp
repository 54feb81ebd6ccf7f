#include <QAction>
#include <QMenu>
#include <QTimer>
#include "shell/app/app_fixture.h"

namespace orvane::test { namespace {

TEST_F(AppTest, CommandsAreCarriedOutWhicheverWayTheyAreGiven) {
  struct Case {
    const char* name;
    std::function<void()> give;
    std::function<bool()> isCarriedOut;
  };
  const auto launcher = [this](const char* name) { return [this, name] { app->runAction(name); }; };
  const auto tray = [this](const char* title) { return [this, title] { chooseFromTray(title); }; };
  const auto menu = [this](const char* title) {
    return [this, title] {
      for (auto* const action : widget("Orvane").findChildren<QAction*>()) {
        if (action->text() == QString::fromUtf8(title)) { action->trigger(); }
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
  QString proposed;
  settings.askWhereToSave = [&](QWidget& /*over*/, const QString& name, const auto& /*use*/) {
    proposed = name;
  };
  const auto asked = [&proposed] { return proposed == QStringLiteral("orvane-history.csv"); };
  int ends = 0;
  const auto ended = [&ends] { return ends == 1; };
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
      {"the window's payments", menu("Payments…"), opened("Payments")},
      {"the window's saving", menu("Save History as CSV…"), asked},
      {"the window's quit", menu("Quit Orvane"), ended},
      {"Control-R", keys(Qt::Key_R), refreshed},
      {"Control-S", keys(Qt::Key_S), asked},
      {"F1", keys(Qt::Key_F1, {}), opened("Orvane Help")},
      {"Control-?", keys(Qt::Key_Question), opened("Orvane Help")},
      {"Control-Q", keys(Qt::Key_Q), ended},
      {"closing the main window", [this] { widget("Orvane").close(); }, ended},
  };
  storeToken("stored");
  storePayoutAddress(firstAddress);
  defaults.setData("balance.braiinsHistory", R"([{"date":86400}])");
  for (const auto& [name, give, isCarriedOut] : cases) {
    launch();
    pass(4min);  // nothing is under way any more
    transport.clearSent();
    proposed.clear();
    ends = 0;
    app->onEnd = [&ends] { ++ends; };
    ASSERT_FALSE(isCarriedOut()) << name;
    give();
    settle();
    EXPECT_TRUE(isCarriedOut()) << name;
  }
}

TEST_F(AppTest, QuittingWaitsForTheTokenToReachTheKeychainButNoLongerThanTwoSeconds) {
  struct Case {
    ExecutorClock::duration writing;
    std::optional<std::string> kept;
  };
  for (const auto& [writing, kept] : {Case{1h, std::nullopt}, Case{500ms, "fresh"}}) {
    keychain.delay = {};
    launch();
    keychain.delay = writing;
    tokenField().setText(QStringLiteral("fresh"));
    Q_EMIT tokenField().returnPressed();
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(isOnScreen("Orvane")) << "gone for the user at once";
    EXPECT_EQ(keptToken(), std::nullopt);
    QMetaObject::invokeMethod(&desktop, [this] { executor.advance(2s); }, Qt::QueuedConnection);
    QTimer tooLate;
    QObject::connect(&tooLate, &QTimer::timeout, [] { QCoreApplication::exit(1); });
    tooLate.start(2s);
    EXPECT_EQ(QCoreApplication::exec(), 0);
    EXPECT_EQ(keptToken(), kept);
  }
}

TEST_F(AppTest, StartAtLoginIsShownAsItIsAndNotAsItWasChosen) {
  bool isOn = false;
  std::optional<bool> asked;
  settings.startAtLogin = {.isOn = [&] { return isOn; }, .set = [&](bool on) { asked = on; }};
  launch();
  auto& menu = *widget("Orvane").findChild<QMenu*>();
  const auto rows = menu.actions();
  auto* const start = *std::ranges::find(rows, QStringLiteral("Start at Login"), &QAction::text);
  start->trigger();
  EXPECT_EQ(asked, true);
  for (const bool granted : {false, true}) {
    isOn = granted;
    Q_EMIT menu.aboutToShow();
    EXPECT_EQ(start->isChecked(), granted);
  }
}

TEST_F(AppTest, RefreshNowInTheWindowsMenuWaitsForSomethingToRefresh) {
  const auto isEnabled = [this] {
    const auto commands = widget("Orvane").findChildren<QAction*>();
    const auto refresh = std::ranges::find(commands, QStringLiteral("Refresh Now"), &QAction::text);
    return (*refresh)->isEnabled();
  };
  launch();
  EXPECT_FALSE(isEnabled());
  storeToken("stored");
  launch();
  pass(1s);
  EXPECT_TRUE(isEnabled());
}

}}  // namespace orvane::test
