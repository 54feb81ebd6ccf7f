#include "platform/desktop/status/drawing/status_drawing.h"

#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <cmath>

#include "platform/desktop/status/drawing/short_figure.h"
#include "platform/desktop/status/drawing/tabular_text.h"
#include "platform/desktop/symbols.h"

namespace orvane {
namespace {

constexpr double symbolHeightPerPoint = 14.0 / 13.0;
constexpr double gapBeforeText = 3;

int toPixels(double length) { return static_cast<int>(std::lround(length)); }

QImage blank(int width, int height) {
  QImage image(std::max(1, width), height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

QPixmap symbol(const StatusImage& image, int height, const StatusInk& ink) {
  return symbolPixmap(QString::fromStdString(image.symbolName), height, ink.symbol, 1);
}

/// The margin keeps the symbol on whole pixels.
int symbolHeightInSquare(int side) {
  const int height = side <= 18 ? side - 2 : toPixels(side * 16 / 22.0);
  return (side - height) % 2 == 0 ? height : height + 1;
}

/// The largest text that fits; a figure of five characters sets the least size.
int figurePixelSize(const QString& figure, int side) {
  const int largest = toPixels(side * 0.56);
  for (int size = largest; size > 5; --size) {
    if (TabularText(size).size(figure).width() <= side) { return size; }
  }
  return 5;
}

}  // namespace

PointSize symbolMeasure(const QString& name, double pointSize) {
  const int height = toPixels(pointSize * symbolHeightPerPoint);
  return {.width = std::round(height * symbolAspectRatio(name)),
          .height = static_cast<double>(height)};
}

QImage drawWide(const StatusImage& image, int height, const StatusInk& ink) {
  if (image.text.empty() || image.size.height <= 0) { return drawSymbolSquare(image, height, ink); }
  const auto scale = height / image.size.height;
  const auto text = QString::fromStdString(image.text);
  const auto drawnSymbol =
      symbol(image, toPixels(image.symbolPointSize * symbolHeightPerPoint * scale), ink);
  const TabularText drawnText(image.textPointSize * scale);
  const int textStart = drawnSymbol.width() + toPixels(gapBeforeText * scale);
  const int textWidth = static_cast<int>(std::ceil(drawnText.size(text).width()));

  auto whole = blank(textStart + textWidth, height);
  QPainter painter(&whole);
  painter.drawPixmap(0, (height - drawnSymbol.height()) / 2, drawnSymbol);
  painter.setPen(ink.text);
  const auto baseline = std::round((height + drawnText.digitHeight()) / 2);
  drawnText.draw(painter, QPointF(textStart, baseline), text);
  return whole;
}

QImage drawSymbolSquare(const StatusImage& image, int side, const StatusInk& ink) {
  const auto drawn = symbol(image, symbolHeightInSquare(side), ink);
  auto whole = blank(side, side);
  QPainter painter(&whole);
  painter.drawPixmap((side - drawn.width()) / 2, (side - drawn.height()) / 2, drawn);
  return whole;
}

QImage drawFigureSquare(const StatusImage& image, int side, const StatusInk& ink) {
  if (image.text.empty()) { return drawSymbolSquare(image, side, ink); }
  const auto figure = shortFigure(QString::fromStdString(image.text));
  const TabularText text(figurePixelSize(figure, side));
  const int figureHeight = toPixels(text.digitHeight());
  const int gap = std::max(1, side / 22);
  const auto drawn = symbol(image, side - figureHeight - gap, ink);

  auto whole = blank(side, side);
  QPainter painter(&whole);
  painter.drawPixmap((side - drawn.width()) / 2, 0, drawn);
  painter.setPen(ink.text);
  text.draw(painter, QPointF((side - text.size(figure).width()) / 2, side), figure);
  return whole;
}

}  // namespace orvane
