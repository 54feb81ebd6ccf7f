#include "platform/desktop/qt/key_dispatch.h"

#include <QApplication>
#include <QChar>
#include <QKeyEvent>
#include <QString>
#include <algorithm>
#include <utility>

#include "platform/desktop/desktop_event.h"

namespace orvane {

/// A key press in the desktop's terms. Control is the modifier that shortcuts use.
[[nodiscard]] DesktopEvent keyDownEvent(const QKeyEvent& event);

namespace {

std::string charactersIgnoringModifiers(const QKeyEvent& event) {
  // With Control held the text is a control character, and the key alone says which letter it is.
  constexpr int firstPrintable = Qt::Key_Space;
  constexpr int lastPrintable = Qt::Key_ydiaeresis;
  if (event.key() >= firstPrintable && event.key() <= lastPrintable) {
    return QString(QChar(static_cast<char16_t>(event.key())).toLower()).toStdString();
  }
  return event.text().toStdString();
}

}  // namespace

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

namespace {

/// Shift and the like say something only together with another key.
bool isModifierKey(int key) {
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

}  // namespace

KeyDispatch::KeyDispatch(WindowKeys windowKeys) : windowKeys_(std::move(windowKeys)) {
  QCoreApplication::instance()->installEventFilter(this);
}

Registration KeyDispatch::addMonitor(DesktopApplication::KeyMonitor monitor) {
  auto shared = std::make_shared<const DesktopApplication::KeyMonitor>(std::move(monitor));
  std::erase_if(monitors_, [](const auto& known) { return known.expired(); });
  monitors_.push_back(shared);
  return Registration(std::move(shared));
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

bool KeyDispatch::answer(const QKeyEvent& event) {
  const auto before = std::exchange(currentEvent_, keyDownEvent(event));
  const bool swallowed = isSwallowed(*currentEvent_);
  currentEvent_ = before;
  return swallowed;
}

bool KeyDispatch::isSwallowed(const DesktopEvent& event) {
  const auto asked = monitors_;
  for (const auto& known : asked) {
    const auto monitor = known.lock();
    if (monitor && (*monitor)(event) == KeyDecision::swallow) { return true; }
  }
  return windowKeys_(event);
}

}  // namespace orvane
