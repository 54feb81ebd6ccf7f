#pragma once

#include <QImage>

#include "platform/desktop/status/drawing/status_colors.h"
#include "platform/desktop/status_item.h"

namespace orvane {

/// The size of a symbol at a point size, in pixels.
[[nodiscard]] PointSize symbolMeasure(const QString& name, double pointSize);

/// Symbol and text side by side in an image `height` pixels high and as wide as both need, drawn
/// for that height. Without a text it is square.
[[nodiscard]] QImage drawWide(const StatusImage& image, int height, const StatusInk& ink);

/// The symbol in a square of `side` pixels.
[[nodiscard]] QImage drawSymbolSquare(const StatusImage& image, int side, const StatusInk& ink);

/// The same with a short form of the text beneath the symbol, as large as it goes. Without a text
/// the symbol has the square for itself.
[[nodiscard]] QImage drawFigureSquare(const StatusImage& image, int side, const StatusInk& ink);

}  // namespace orvane
