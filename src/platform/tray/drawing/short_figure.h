#pragma once

#include <QColor>
#include <QImage>
#include <QString>

namespace orvane {
/// The first figure of a status text in at most five characters, cut off rather than rounded up:
/// "12,345 sats" is "12k", "0.00012345 | 1.00000000 BTC" is "123µ". A text of another kind gives
/// its first word.
[[nodiscard]] QString shortFigure(const QString& text);

/// Such a figure in characters of three by five whole pixels, for icons so small that a font's are
/// blurred beyond reading: four of them fit into sixteen pixels. Null where the figure has a
/// character that short figures do not have.
[[nodiscard]] QImage pixelFigure(const QString& figure, const QColor& color);
}  // namespace orvane
