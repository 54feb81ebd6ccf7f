#pragma once

#include "platform/bus/desktop_portal.h"

namespace orvane {
/// Follows the desktop's choice between light and dark, as the desktop portal tells it, while the
/// program runs. Where Qt knows the desktop's colours by itself, and where there is no portal,
/// nothing is changed.
class ColorScheme {
 public:
  /// Asks and listens; the answer comes later. After the QApplication.
  explicit ColorScheme(SessionBus& bus);

  /// Gives the application the palette for `preference`.
  static void apply(ColorPreference preference);

 private:
  PortalColorPreference preference_;
};
}  // namespace orvane
