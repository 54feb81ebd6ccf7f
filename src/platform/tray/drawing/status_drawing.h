#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QSizeF>
#include <QString>

#include "platform/tray/drawing/status_colors.h"
#include "platform/tray/status_item.h"

namespace orvane {

/// The first figure of a status text in at most five characters, cut off rather than rounded up:
/// "12,345 sats" is "12k", "0.00012345 | 1.00000000 BTC" is "123µ". A text of another kind gives
/// its first word.
[[nodiscard]] QString shortFigure(const QString& text);

/// Text in the semibold interface font in which every digit takes the width of the widest one, so
/// that figures do not jump when they change. Qt 6.4 cannot ask a font for its tabular digits.
class TabularText {
 public:
  /// `pixelSize` is the height of the font.
  explicit TabularText(double pixelSize);

  [[nodiscard]] QSizeF size(const QString& text) const;
  /// The height of a digit above the baseline.
  [[nodiscard]] double digitHeight() const;
  void draw(QPainter& painter, const QPointF& baselineStart, const QString& text) const;

 private:
  QFont font_;
  double digitWidth_;
};

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
