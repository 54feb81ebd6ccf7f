#include "shell/app/app_fixture.h"

#include <QLabel>
#include <algorithm>

namespace orvane::test {

void AppTest::begin() {
  app.reset();
  app.emplace(OrvanePlatform{.balance = platform(), .desktop = desktop, .statusBar = statusBar},
              OrvaneSettings{.poolWebHost = "pool.test", .brandUrl = "", .version = "1.0.0"});
  app->launch();
}

void AppTest::launch() {
  begin();
  pass(std::chrono::milliseconds(50));
}

void AppTest::settle() {
  for (int turn = 0; turn < 5; ++turn) {
    executor.runUntilIdle();
    QCoreApplication::processEvents();
  }
}

void AppTest::pass(ExecutorClock::duration time) {
  executor.advance(time);
  settle();
}

void AppTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(QApplication::activeWindow()->windowHandle(), key, modifiers);
  settle();
}

QPushButton* AppTest::button(const QString& text, const QString& name) const {
  for (auto* const each : widget("Orvane").findChildren<QPushButton*>()) {
    if (each->text() == text && each->accessibleDescription() == name) { return each; }
  }
  return nullptr;
}

bool AppTest::showsText(const QString& text, const std::string& title) const {
  return std::ranges::any_of(widget(title).findChildren<QLabel*>(), [&text](const auto* label) {
    return label->isVisible() && label->text() == text;
  });
}

const std::vector<MenuItem>& AppTest::statusMenu() {
  statusBar.item.action(DesktopEvent{.type = DesktopEvent::Type::rightMouseUp});
  return statusBar.item.poppedUp->items;
}

MenuItem AppTest::statusMenuItem(const std::string& title) {
  return *std::ranges::find(statusMenu(), title, &MenuItem::title);
}

}  // namespace orvane::test
