#pragma once

#include <QString>
#include "platform/bus/desktop_portal.h"
#include "platform/defaults/user_defaults.h"

namespace orvane {
/// Whether the program runs in a Flatpak.
[[nodiscard]] bool isInFlatpak();

/// Start at login for a Flatpak. Its own entry for that is hidden in the sandbox, and desktops list
/// none; the portal writes one when the user agrees, and allows the program to run without a
/// window. The portal does not tell what holds, so that the last answer is kept.
class LoginStart {
 public:
  LoginStart(PortalRequests& portal, UserDefaults& defaults)
      : portal_(portal), defaults_(defaults) {}

  [[nodiscard]] bool isOn() const;
  /// Asks for it, or for its end.
  void set(bool on);

 private:
  PortalRequests& portal_;
  UserDefaults& defaults_;
};
}  // namespace orvane
