#pragma once

#include <QPalette>
#include <QString>
#include <functional>
#include "platform/bus/desktop_portal.h"

class QStyle;

namespace orvane {
/// Whether windows are lighter or darker than the texts on them.
enum class Shade { light, dark };

[[nodiscard]] Shade shadeOf(const QPalette& palette);

/// A palette of our own, for desktops that name a shade without giving Qt its colours.
[[nodiscard]] QPalette ownPalette(Shade shade);

/// What the application's widgets are drawn with.
struct Look {
  QString style;     ///< its name
  QPalette palette;  ///< empty: the one that Qt makes of the desktop
};

/// The look in a shade: that of the user's style and the desktop's palette, with as little changed
/// as the shade asks for. A style that draws in colours of its own gives way to its own form in
/// that shade, or to Fusion where it has none.
[[nodiscard]] Look lookIn(Shade shade, QStyle& style, const QPalette& desktops);

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
