#pragma once

#include <QColor>
#include <QImage>
#include <optional>
#include <string>
#include "platform/tray/status_item.h"

namespace orvane {
/// How bright the panel is that the status item stands in, as far as that can be known.
enum class PanelShade { light, dark, unknown };

/// The shade that a panel of this background colour counts as.
[[nodiscard]] PanelShade shadeOfBackground(const QColor& background);

/// The shade of a panel that writes its texts in this colour.
[[nodiscard]] PanelShade shadeForText(const QColor& text);

/// The colours to draw a status image with.
struct StatusInk {
  QColor symbol;
  QColor text;
  std::optional<QColor> outline;  ///< around both
  bool operator==(const StatusInk&) const = default;
};

/// Colours that stand out from the panel. No single one does from light and dark panels alike, so
/// on an unknown panel the colours for dark ones have a dark outline, which is what a light panel
/// shows them by. A symbol without a colour takes the panel's own foreground, as far as it is
/// known.
[[nodiscard]] StatusInk inkFor(const StatusImage& image, PanelShade shade);

/// The size of a symbol at a point size, in pixels.
[[nodiscard]] PointSize symbolMeasure(const std::string& name, double pointSize);
/// The size of a text in the semibold interface font of that height, with digits of equal width.
[[nodiscard]] PointSize textMeasure(const std::string& text, double pixelSize);

/// Symbol and text side by side in an image `height` pixels high and as wide as both need, drawn
/// for that height. Without a text it is square.
[[nodiscard]] QImage drawWide(const StatusImage& image, int height, const StatusInk& ink);
/// The symbol in a square of `side` pixels.
[[nodiscard]] QImage drawSymbolSquare(const StatusImage& image, int side, const StatusInk& ink);
/// The same with a short form of the text beneath the symbol, as large as it goes. Without a text
/// the symbol has the square for itself.
[[nodiscard]] QImage drawFigureSquare(const StatusImage& image, int side, const StatusInk& ink);
}  // namespace orvane
