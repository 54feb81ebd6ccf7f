#pragma once

#include <cstdint>
#include <string>

namespace orvane {

/// The modifier flags of an event. The platform's own key ("Command") is Control here.
struct ModifierFlags {
  bool shift = false;
  bool control = false;  ///< what shortcuts call Command
  bool option = false;   ///< Alt
  bool meta = false;

  [[nodiscard]] bool any() const { return shift || control || option || meta; }
  bool operator==(const ModifierFlags&) const = default;
};

/// What the user did, as far as decisions depend on it.
struct DesktopEvent {
  enum class Type { keyDown, leftMouseUp, rightMouseUp };
  static constexpr std::uint16_t escapeKeyCode = 53;

  Type type;
  ModifierFlags modifiers = {};
  std::uint16_t keyCode = 0;                     ///< `escapeKeyCode` for Escape, else 0
  std::string charactersIgnoringModifiers = {};  ///< as typed without modifiers
};

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
