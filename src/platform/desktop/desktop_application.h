#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/async/signal.h"
#include "platform/desktop/desktop_event.h"
#include "platform/desktop/desktop_window.h"

namespace orvane {

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
