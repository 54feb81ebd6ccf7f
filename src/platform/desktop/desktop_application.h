#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "platform/async/signal.h"

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

/// One row of a menu; a separator has no title.
struct MenuItem {
  std::string title;
  bool enabled = true;
  std::string keyEquivalent = {};  ///< one lower-case character, with Control; empty: none
  std::function<void()> action = {};
  std::optional<bool> checked = {};  ///< whether what it switches is on; none: it switches nothing

  [[nodiscard]] static MenuItem separator() { return MenuItem{}; }
  [[nodiscard]] bool isSeparator() const { return title.empty(); }
};

/// A menu as a value: it is built, shown and forgotten.
struct Menu {
  std::vector<MenuItem> items;
};

class DesktopWindow;

/// Is asked and told about one window.
class WindowDelegate {
 public:
  virtual ~WindowDelegate() = default;

  /// False keeps the window open. Asked whenever something is about to close it: a key, the window
  /// manager's close control (then the application has no current event).
  [[nodiscard]] virtual bool windowShouldClose(DesktopWindow& window) = 0;
  virtual void windowDidMiniaturize(DesktopWindow& window) = 0;
  virtual void windowDidDeminiaturize(DesktopWindow& window) = 0;
};

/// What observers of a window are told: after the fact, but for `willClose`.
enum class WindowNotification { didBecomeKey, willClose, didMiniaturize, didDeminiaturize };

/// One top-level window of the application.
class DesktopWindow {
 public:
  static constexpr int normalLevel = 0;
  static constexpr int statusBarLevel = 25;  ///< windows of the status area

  virtual ~DesktopWindow() = default;

  [[nodiscard]] virtual std::string title() const = 0;
  [[nodiscard]] virtual int level() const = 0;
  [[nodiscard]] virtual bool isMiniaturized() const = 0;
  /// On screen; a miniaturized window is not.
  [[nodiscard]] virtual bool isVisible() const = 0;
  /// It receives what is typed.
  [[nodiscard]] virtual bool isKeyWindow() const = 0;

  virtual void miniaturize() = 0;
  virtual void deminiaturize() = 0;
  /// Takes the window off the screen without closing it.
  virtual void orderOut() = 0;
  virtual void makeKeyAndOrderFront() = 0;
  /// Closes the window as its close control does: the delegate may refuse.
  virtual void performClose() = 0;

  /// The window does not keep its delegate alive; without one it closes when asked.
  virtual void setDelegate(std::weak_ptr<WindowDelegate> delegate) = 0;
  /// Tells `listener` of everything that happens to the window, until the registration goes.
  [[nodiscard]] virtual Registration observe(
      std::function<void(const WindowNotification&)> listener) = 0;
};

/// How the desktop counts the application: with windows in task bar and switcher, or as the
/// owner of a status item only.
enum class ActivationPolicy { regular, accessory };

/// What a key monitor wants done with a key: nobody else gets one that is swallowed.
enum class KeyDecision { passOn, swallow };

/// The running application as the desktop sees it. Main thread only.
class DesktopApplication {
 public:
  using KeyMonitor = std::function<KeyDecision(const DesktopEvent&)>;

  virtual ~DesktopApplication() = default;

  /// Every window, shown or not, in the order of their creation.
  [[nodiscard]] virtual std::vector<DesktopWindow*> windows() const = 0;
  /// The first of the windows with exactly this title; nothing when there is none now.
  [[nodiscard]] DesktopWindow* windowTitled(std::string_view title) const {
    for (auto* const window : windows()) {
      if (window->title() == title) { return window; }
    }
    return nullptr;
  }
  /// What the user did that is being handled now; nothing when no key or click is.
  [[nodiscard]] virtual std::optional<DesktopEvent> currentEvent() const = 0;

  virtual void setActivationPolicy(ActivationPolicy policy) = 0;
  /// Undoes the hiding of the whole application, on desktops that know such a thing.
  virtual void unhide() = 0;
  /// Brings the key window in front of other applications' windows.
  virtual void activateIgnoringOtherApps() = 0;
  /// Ends the process, from the event loop and not within this call.
  virtual void terminate() = 0;

  /// Asked about every key pressed in a window of the application, before shortcuts and focused
  /// fields are, in the order of installation; the first one that swallows the key ends its way.
  [[nodiscard]] virtual Registration addKeyDownMonitor(KeyMonitor monitor) = 0;
};
}  // namespace orvane
