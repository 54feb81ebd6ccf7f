#pragma once

#include <QLineEdit>
#include <QTest>
#include <QWindow>
#include "core/store_fixture.h"
#include "platform/desktop/qt/qt_desktop_application.h"
#include "shell/app/orvane_app.h"
#include "support/fake_desktop.h"

namespace orvane::test {
/// The application with its real windows, on services, keychain and tray that are the test's own
/// and in time that passes only when the test says so.
class AppTest : public StoreTest {
 protected:
  /// Starts the program.
  void begin() {
    app.reset();
    app.emplace(OrvanePlatform{.balance = platform(), .desktop = desktop, .statusBar = statusBar},
                settings);
    app->launch();
  }
  /// Starts the program and lets the first things happen.
  void launch() {
    begin();
    pass(50ms);
  }
  void pass(ExecutorClock::duration time) {
    executor.advance(time);
    settle();
  }
  /// Lets everything happen that is due now.
  void settle() {
    for (int turn = 0; turn < 5; ++turn) {
      executor.runUntilIdle();
      QCoreApplication::processEvents();
    }
  }

  [[nodiscard]] QWidget& widget(const std::string& title) const {
    return QtDesktopApplication::widgetOf(*desktop.windowTitled(title));
  }
  [[nodiscard]] bool isOnScreen(const std::string& title) const {
    const auto* const window = desktop.windowTitled(title);
    return window && window->isVisible();
  }
  [[nodiscard]] QLineEdit& tokenField() const {
    const auto fields = widget("Orvane").findChildren<QLineEdit*>();
    return **std::ranges::find(fields, QStringLiteral("Braiins API token"),
                               &QLineEdit::accessibleName);
  }
  /// Presses a key in the window that has the focus.
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::activeWindow()->windowHandle(), key, modifiers);
    settle();
  }
  /// Chooses from the status menu, which a right click brings up.
  void chooseFromTray(const char* title) {
    statusBar.item.action(DesktopEvent{.type = DesktopEvent::Type::rightMouseUp});
    std::ranges::find(statusBar.item.poppedUp->items, title, &MenuItem::title)->action();
    settle();
  }

  OrvaneSettings settings{.poolWebHost = "pool.test",
                          .explorerWebHost = "explorer.test",
                          .brandUrl = "",
                          .version = "1.0.0"};
  FakeStatusBar statusBar;
  QtDesktopApplication desktop;
  std::optional<OrvaneApp> app;
};
}  // namespace orvane::test
