#include "platform/tray/drawing/status_drawing.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "platform/desktop/symbols.h"

namespace orvane {

namespace {

constexpr int longestShortFigure = 5;
constexpr std::uint64_t satsPerBitcoin = 100'000'000;

struct Magnitude {
  std::uint64_t factor;
  char16_t letter;
};
constexpr std::array<Magnitude, 5> magnitudes{{{1'000'000'000'000'000, u'P'},
                                               {1'000'000'000'000, u'T'},
                                               {1'000'000'000, u'G'},
                                               {1'000'000, u'M'},
                                               {1'000, u'k'}}};

/// All digits of a grouped number in any script; amounts have at most 19.
std::uint64_t digitsOf(QStringView text) {
  std::uint64_t number = 0;
  for (const auto character : text) {
    const int digit = character.digitValue();
    if (digit >= 0) { number = number * 10 + static_cast<std::uint64_t>(digit); }
  }
  return number;
}

QString withOneDecimal(std::uint64_t tenths) {
  return QStringLiteral("%1.%2").arg(tenths / 10).arg(tenths % 10);
}

QString shortWhole(std::uint64_t number) {
  if (number < 10'000) { return QString::number(number); }
  for (const auto& [factor, letter] : magnitudes) {
    if (number < factor) { continue; }
    const bool isShort = number < 10 * factor;
    return (isShort ? withOneDecimal(number / (factor / 10)) : QString::number(number / factor)) +
           QChar(letter);
  }
  return {};
}

QString padded(std::uint64_t number, int digits) {
  return QStringLiteral("%1").arg(number, digits, 10, QLatin1Char('0'));
}

/// Three digits of an amount in bitcoin, and below a thousandth of one in millionths (µ).
QString shortBitcoin(std::uint64_t sats) {
  const auto whole = sats / satsPerBitcoin;
  const auto fraction = sats % satsPerBitcoin;
  if (whole >= 100) { return shortWhole(whole); }
  if (whole >= 10) { return withOneDecimal(sats / (satsPerBitcoin / 10)); }
  if (whole >= 1) {
    return QStringLiteral("%1.%2").arg(whole).arg(padded(fraction / 1'000'000, 2));
  }
  if (fraction >= 100'000) { return u'.' + padded(fraction / 100'000, 3); }
  if (fraction >= 1'000) { return QString::number(fraction / 100) + QChar(u'µ'); }
  if (fraction >= 100) { return withOneDecimal(fraction / 10) + QChar(u'µ'); }
  if (fraction > 0) { return u'.' + padded(fraction, 2) + QChar(u'µ'); }
  return QStringLiteral("0");
}

bool isNegative(QStringView figure) {
  return figure.contains(u'-') || figure.contains(QChar(0x2212));
}

}  // namespace

QString shortFigure(const QString& text) {
  const auto first = QStringView(text).left(text.contains(u'|') ? text.indexOf(u'|') : text.size());
  const auto sign = isNegative(first) ? QStringLiteral("-") : QString();
  if (text.endsWith(QStringLiteral(" sats"))) { return sign + shortWhole(digitsOf(first)); }
  if (text.endsWith(QStringLiteral(" BTC"))) { return sign + shortBitcoin(digitsOf(first)); }
  return text.section(u' ', 0, 0).left(longestShortFigure);
}

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
