#include "platform/desktop/qt/key_events.h"

#include <QChar>
#include <QString>

namespace orvane {
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

}  // namespace orvane
