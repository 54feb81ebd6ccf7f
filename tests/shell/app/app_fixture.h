#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <optional>

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
  void begin();
  /// Starts the program and lets the first things happen.
  void launch();
  /// Lets everything happen that is due now.
  void settle();
  void pass(ExecutorClock::duration time);

  [[nodiscard]] QWidget& widget(const std::string& title) const {
    return QtDesktopApplication::widgetOf(*desktop.windowTitled(title));
  }
  [[nodiscard]] bool isOnScreen(const std::string& title) const {
    const auto* const window = desktop.windowTitled(title);
    return window && window->isVisible();
  }
  /// Presses a key in the window that has the focus.
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

  /// What a screen reader calls it; nothing when the main window has no such thing.
  template <class Widget>
  [[nodiscard]] Widget* find(const QString& accessibleName) const {
    for (auto* const child : widget("Orvane").findChildren<Widget*>()) {
      if (child->accessibleName() == accessibleName) { return child; }
    }
    return nullptr;
  }
  /// The button that shows `text` and belongs to the field `name`.
  [[nodiscard]] QPushButton* button(const QString& text, const QString& name = {}) const;
  [[nodiscard]] bool showsText(const QString& text, const std::string& title = "Orvane") const;

  /// The status menu as a right click brings it up.
  [[nodiscard]] const std::vector<MenuItem>& statusMenu();
  [[nodiscard]] MenuItem statusMenuItem(const std::string& title);
  [[nodiscard]] const FakeStatusItemState& statusItem() const { return statusBar.item; }

  FakeStatusBar statusBar;
  QtDesktopApplication desktop;
  std::optional<OrvaneApp> app;
};

}  // namespace orvane::test
