#include "platform/desktop/qt/qt_desktop_application.h"
#include <QApplication>
#include <QChar>
#include <QEvent>
#include <QKeyEvent>
#include <QString>
#include <QTimer>
#include <algorithm>
#include <chrono>

namespace orvane {
namespace {
using namespace std::chrono_literals;

/// As long as a menu may stay open before something is chosen from it; compositors themselves
/// forget a permission after about that time.
constexpr auto tokenLifetime = 30s;

/// Shift and the like say something only together with another key.
bool isModifierKey(int key) {
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

std::string charactersIgnoringModifiers(const QKeyEvent& event) {
  // With Control held the text is a control character, and the key alone says which letter it is.
  constexpr int firstPrintable = Qt::Key_Space;
  constexpr int lastPrintable = Qt::Key_ydiaeresis;
  if (event.key() >= firstPrintable && event.key() <= lastPrintable) {
    return QString(QChar(static_cast<char16_t>(event.key())).toLower()).toStdString();
  }
  return event.text().toStdString();
}

/// A key press in the desktop's terms. Control is the modifier that shortcuts use.
DesktopEvent keyDownEvent(const QKeyEvent& event) {
  const auto modifiers = event.modifiers();
  return {.type = DesktopEvent::Type::keyDown,
          .modifiers = {.shift = modifiers.testFlag(Qt::ShiftModifier),
                        .control = modifiers.testFlag(Qt::ControlModifier),
                        .option = modifiers.testFlag(Qt::AltModifier),
                        .meta = modifiers.testFlag(Qt::MetaModifier)},
          .keyCode = event.key() == Qt::Key_Escape ? DesktopEvent::escapeKeyCode : std::uint16_t{0},
          .charactersIgnoringModifiers = charactersIgnoringModifiers(event)};
}
}  // namespace

KeyDispatch::KeyDispatch(WindowKeys windowKeys) : windowKeys_(std::move(windowKeys)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool KeyDispatch::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type != QEvent::ShortcutOverride && type != QEvent::KeyPress) { return false; }
  // Widgets get the key only after their window has.
  if (!watched->isWindowType() || QApplication::activePopupWidget()) { return false; }
  auto& keyEvent = static_cast<QKeyEvent&>(*event);
  if (isModifierKey(keyEvent.key())) { return false; }
  // A press arrives twice, first to let a field claim it before the shortcuts; it is asked about
  // once.
  bool swallowed = false;
  if (type == QEvent::ShortcutOverride) {
    swallowed = answer(keyEvent);
    answered_ = Answer{.key = keyEvent.key(), .swallowed = swallowed};
  } else {
    const auto answered = std::exchange(answered_, std::nullopt);
    swallowed =
        answered && answered->key == keyEvent.key() ? answered->swallowed : answer(keyEvent);
  }
  if (swallowed) { keyEvent.accept(); }
  return swallowed;
}

bool KeyDispatch::answer(const QKeyEvent& key) {
  // A key that is held down acts once: a window that it closed leaves the repeats to another one.
  if (key.isAutoRepeat()) { return key.key() == swallowedKey_; }
  const auto event = keyDownEvent(key);
  const auto before = std::exchange(currentEvent_, event);
  const bool swallowed = monitors_.untilTrue([&event](const auto& monitor) {
    return monitor(event) == KeyDecision::swallow;
  }) || windowKeys_(event);
  currentEvent_ = before;
  swallowedKey_ = swallowed ? key.key() : 0;
  return swallowed;
}

QtDesktopApplication::QtDesktopApplication()
    : keys_([this](const DesktopEvent& event) { return handleWindowKey(event); }),
      onTerminate_([] { QCoreApplication::exit(0); }) {
  QApplication::setQuitOnLastWindowClosed(false);
  QCoreApplication::instance()->installEventFilter(this);
}

DesktopWindow& QtDesktopApplication::addWindow(std::unique_ptr<QWidget> widget) {
  return *windows_.emplace_back(
      std::make_unique<QtDesktopWindow>(std::move(widget), [this](QtDesktopWindow& window) {
        frontWindow_ = &window;
        return takeActivationToken();
      }));
}

QWidget& QtDesktopApplication::widgetOf(DesktopWindow& window) {
  return static_cast<QtDesktopWindow&>(window).widget();
}

void QtDesktopApplication::setTerminationHandler(std::function<void()> handler) {
  onTerminate_ = std::move(handler);
}

void QtDesktopApplication::setActivationToken(std::string token) {
  activationToken_ = std::move(token);
  tokenExpires_.setRemainingTime(tokenLifetime);
}

std::string QtDesktopApplication::takeActivationToken() {
  std::string token = std::exchange(activationToken_, std::string());
  return tokenExpires_.hasExpired() ? std::string() : token;
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
    frontWindow_->activate(takeActivationToken());
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
