#include "platform/desktop/qt/qt_desktop_application.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace orvane {

QtDesktopApplication::QtDesktopApplication()
    : keys_([this](const DesktopEvent& event) { return handleWindowKey(event); }),
      onTerminate_([] { QCoreApplication::exit(0); }) {
  QApplication::setQuitOnLastWindowClosed(false);
  QCoreApplication::instance()->installEventFilter(this);
}

DesktopWindow& QtDesktopApplication::addWindow(std::unique_ptr<QWidget> widget) {
  return *windows_.emplace_back(std::make_unique<QtDesktopWindow>(
      std::move(widget), [this](QtDesktopWindow& window) { frontWindow_ = &window; }));
}

QWidget& QtDesktopApplication::widgetOf(DesktopWindow& window) {
  return static_cast<QtDesktopWindow&>(window).widget();
}

void QtDesktopApplication::setTerminationHandler(std::function<void()> handler) {
  onTerminate_ = std::move(handler);
}

void QtDesktopApplication::setActivationToken(std::string token) {
  activationToken_ = std::move(token);
}

std::vector<DesktopWindow*> QtDesktopApplication::windows() const {
  std::vector<DesktopWindow*> windows;
  windows.reserve(windows_.size());
  for (const auto& window : windows_) {
    windows.push_back(window.get());
  }
  return windows;
}

std::optional<DesktopEvent> QtDesktopApplication::currentEvent() const {
  return keys_.currentEvent();
}

void QtDesktopApplication::activateIgnoringOtherApps() {
  if (frontWindow_ && frontWindow_->widget().isVisible()) {
    frontWindow_->activate(std::exchange(activationToken_, std::string()));
  }
}

void QtDesktopApplication::terminate() {
  QTimer::singleShot(0, this, [this] { onTerminate_(); });
}

Registration QtDesktopApplication::addKeyDownMonitor(KeyMonitor monitor) {
  return keys_.addMonitor(std::move(monitor));
}

bool QtDesktopApplication::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Quit || watched != QCoreApplication::instance()) { return false; }
  // The default would close every window first and give up when one refuses.
  terminate();
  return true;
}

DesktopWindow* QtDesktopApplication::keyWindow() const {
  const auto key =
      std::ranges::find_if(windows_, [](const auto& window) { return window->isKeyWindow(); });
  return key == windows_.end() ? nullptr : key->get();
}

bool QtDesktopApplication::handleWindowKey(const DesktopEvent& event) {
  auto* const window = keyWindow();
  if (!window || event.modifiers != ModifierFlags{.control = true}) { return false; }
  if (event.charactersIgnoringModifiers == "w") {
    window->performClose();
  } else if (event.charactersIgnoringModifiers == "m") {
    window->miniaturize();
  } else if (event.charactersIgnoringModifiers == "q") {
    terminate();
  } else {
    return false;
  }
  return true;
}

}  // namespace orvane
