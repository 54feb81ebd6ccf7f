#pragma once

#include "platform/desktop/desktop_event.h"

namespace orvane {

/// The command key together with `letter`, a lower-case one; other modifiers may be held too.
[[nodiscard]] inline bool isCommandKey(const DesktopEvent& event, char letter) {
  const auto& typed = event.charactersIgnoringModifiers;
  return event.type == DesktopEvent::Type::keyDown && event.modifiers.control &&
         typed.size() == 1 && (typed[0] | 0x20) == letter;
}

[[nodiscard]] inline bool isCommandM(const DesktopEvent& event) { return isCommandKey(event, 'm'); }
[[nodiscard]] inline bool isCommandW(const DesktopEvent& event) { return isCommandKey(event, 'w'); }

/// Escape alone, without any modifier.
[[nodiscard]] inline bool isPlainEscape(const DesktopEvent& event) {
  return event.type == DesktopEvent::Type::keyDown &&
         event.keyCode == DesktopEvent::escapeKeyCode && !event.modifiers.any();
}

}  // namespace orvane
