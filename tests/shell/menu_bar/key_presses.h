#pragma once

#include <string>

#include "platform/desktop/desktop_event.h"

namespace orvane::test {

inline DesktopEvent keyDown(std::string characters, ModifierFlags modifiers = {}) {
  return {.type = DesktopEvent::Type::keyDown,
          .modifiers = modifiers,
          .charactersIgnoringModifiers = std::move(characters)};
}
inline DesktopEvent command(std::string characters) {
  return keyDown(std::move(characters), {.control = true});
}
inline DesktopEvent escape(ModifierFlags modifiers = {}) {
  auto event = keyDown("\x1b", modifiers);
  event.keyCode = DesktopEvent::escapeKeyCode;
  return event;
}
inline DesktopEvent rightClick() { return {.type = DesktopEvent::Type::rightMouseUp}; }
inline DesktopEvent leftClick() { return {.type = DesktopEvent::Type::leftMouseUp}; }

}  // namespace orvane::test
