#pragma once

#include <QPalette>
#include <QString>

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
}  // namespace orvane
