#include "platform/desktop/status/drawing/tabular_text.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

QFont semiboldFont(double pixelSize) {
  auto font = QGuiApplication::font();
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixelSize))));
  font.setWeight(QFont::DemiBold);
  font.setKerning(false);
  return font;
}

double widestDigit(const QFontMetricsF& metrics) {
  double widest = 0;
  for (const auto digit : QStringView(u"0123456789")) {
    widest = std::max(widest, metrics.horizontalAdvance(digit));
  }
  return widest;
}

/// A digit, or everything up to the next digit.
QString nextPiece(QStringView rest) {
  qsizetype length = 1;
  if (!rest.front().isDigit()) {
    while (length < rest.size() && !rest[length].isDigit()) {
      ++length;
    }
  }
  return rest.left(length).toString();
}

}  // namespace

TabularText::TabularText(double pixelSize)
    : font_(semiboldFont(pixelSize)), digitWidth_(widestDigit(QFontMetricsF(font_))) {}

QSizeF TabularText::size(const QString& text) const {
  const QFontMetricsF metrics(font_);
  double width = 0;
  for (qsizetype at = 0; at < text.size();) {
    const auto piece = nextPiece(QStringView(text).mid(at));
    const auto advance = metrics.horizontalAdvance(piece);
    width += piece.front().isDigit() ? std::max(advance, digitWidth_) : advance;
    at += piece.size();
  }
  return {width, metrics.height()};
}

double TabularText::digitHeight() const {
  return -QFontMetricsF(font_).tightBoundingRect(QStringLiteral("0")).top();
}

void TabularText::draw(QPainter& painter, const QPointF& baselineStart, const QString& text) const {
  const QFontMetricsF metrics(font_);
  painter.setFont(font_);
  auto pen = baselineStart;
  for (qsizetype at = 0; at < text.size();) {
    const auto piece = nextPiece(QStringView(text).mid(at));
    const auto advance = metrics.horizontalAdvance(piece);
    const auto cell = piece.front().isDigit() ? std::max(advance, digitWidth_) : advance;
    painter.drawText(pen + QPointF((cell - advance) / 2, 0), piece);
    pen.rx() += cell;
    at += piece.size();
  }
}

}  // namespace orvane
