#pragma once

#include <QString>
#include <functional>
#include "platform/bus/desktop_portal.h"

namespace orvane {
/// Gives the application the look that the user prefers. Where Qt knows the desktop's colours by
/// itself, and the style draws in them, nothing is changed.
class ApplicationLook {
 public:
  /// After the QApplication, whose style is the user's until then.
  ApplicationLook();
  void follow(ColorPreference preference);

 private:
  QString usersStyle_;
  QString styleInPlace_;
};

/// Follows the desktop's choices, as the desktop portal tells them, while the program runs.
class ColorScheme {
 public:
  /// Asks and listens; the answers come later. After the QApplication. `wishHigherContrast`: runs
  /// when the user's wish is known, and after each change of it.
  ColorScheme(SessionBus& bus, std::function<void(bool isWished)> wishHigherContrast);

 private:
  ApplicationLook look_;
  PortalColorPreference preference_;
  PortalContrastWish contrastWish_;
};
}  // namespace orvane
