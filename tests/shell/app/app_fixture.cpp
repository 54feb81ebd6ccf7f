#include "shell/app/app_fixture.h"

#include <QLabel>
#include <QRadioButton>
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

DesktopWindow* AppTest::window(const std::string& title) const {
  const auto windows = desktop.windows();
  const auto found =
      std::ranges::find(windows, title, [](const auto* known) { return known->title(); });
  return found == windows.end() ? nullptr : *found;
}

QWidget& AppTest::widget(const std::string& title) const {
  return QtDesktopApplication::widgetOf(*window(title));
}

bool AppTest::isOnScreen(const std::string& title) const {
  return window(title) && window(title)->isVisible();
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

bool AppTest::showsText(const QString& text) const {
  return std::ranges::any_of(widget("Orvane").findChildren<QLabel*>(), [&text](const auto* label) {
    return label->isVisible() && label->text() == text;
  });
}

std::vector<std::string> AppTest::statusMenuTitles() {
  statusBar.item.action(DesktopEvent{.type = DesktopEvent::Type::rightMouseUp});
  std::vector<std::string> titles;
  for (const auto& item : statusBar.item.poppedUp->items) {
    titles.push_back(item.title);
  }
  return titles;
}

MenuItem AppTest::statusMenuItem(const std::string& title) {
  statusBar.item.action(DesktopEvent{.type = DesktopEvent::Type::rightMouseUp});
  const auto& items = statusBar.item.poppedUp->items;
  return *std::ranges::find(items, title, &MenuItem::title);
}

}  // namespace orvane::test
