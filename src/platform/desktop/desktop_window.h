#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/async/signal.h"

namespace orvane {

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

}  // namespace orvane
