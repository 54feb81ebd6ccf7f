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

}  // namespace orvane
