#pragma once

#include <QColor>
#include <QImage>
#include <QString>

namespace orvane {
/// A figure in characters of three by five whole pixels, for icons so small that a font's are
/// blurred beyond reading: four of them fit into sixteen pixels. Null where the figure has a
/// character that short figures do not have.
[[nodiscard]] QImage pixelFigure(const QString& figure, const QColor& color);
}  // namespace orvane
