#include "platform/tray/drawing/status_drawing.h"
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>
#include "platform/desktop/symbols.h"
#include "platform/tray/drawing/short_figure.h"

namespace orvane {
namespace {
struct Shades {
  QRgb onLight;
  QRgb onDark;

  [[nodiscard]] QColor on(PanelShade shade) const {
    return QColor(shade == PanelShade::light ? onLight : onDark);
  }
};

constexpr Shades templates{.onLight = 0xff2e3436, .onDark = 0xfff2f2f2};
constexpr Shades greens{.onLight = 0xff167a33, .onDark = 0xff3ddc68};
constexpr Shades oranges{.onLight = 0xffb45309, .onDark = 0xffffa52e};

const Shades& shadesOf(StatusColor color) {
  return color == StatusColor::systemGreen ? greens : oranges;
}

/// Text in which every digit takes the width of the widest one, so that figures do not jump when
/// they change. Qt 6.4 cannot ask a font for its tabular digits.
class TabularText {
 public:
  TabularText(const QString& text, double pixelSize) : font_(QGuiApplication::font()) {
    font_.setPixelSize(std::max(1, static_cast<int>(std::lround(pixelSize))));
    font_.setWeight(QFont::DemiBold);
    font_.setKerning(false);
    layOut(text);
  }

  [[nodiscard]] double width() const { return width_; }
  [[nodiscard]] double height() const { return QFontMetricsF(font_).height(); }
  /// The height of a digit above the baseline.
  [[nodiscard]] double digitHeight() const {
    return -QFontMetricsF(font_).tightBoundingRect(QStringLiteral("0")).top();
  }

  void draw(QPainter& painter, const QPointF& baselineStart) const {
    painter.setFont(font_);
    for (const auto& [offset, text] : pieces_) {
      painter.drawText(baselineStart + QPointF(offset, 0), text);
    }
  }

 private:
  /// A digit, or everything up to the next digit.
  struct Piece {
    double offset;
    QString text;
  };

  void layOut(const QString& text) {
    const QFontMetricsF metrics(font_);
    double widestDigit = 0;
    for (const auto digit : QStringView(u"0123456789")) {
      widestDigit = std::max(widestDigit, metrics.horizontalAdvance(digit));
    }
    for (qsizetype at = 0; at < text.size();) {
      const bool isDigit = text[at].isDigit();
      auto end = at + 1;
      while (!isDigit && end < text.size() && !text[end].isDigit()) {
        ++end;
      }
      const auto piece = text.mid(at, end - at);
      const auto advance = metrics.horizontalAdvance(piece);
      const auto cell = isDigit ? std::max(advance, widestDigit) : advance;
      pieces_.push_back({.offset = width_ + (cell - advance) / 2, .text = piece});
      width_ += cell;
      at = end;
    }
  }

  QFont font_;
  std::vector<Piece> pieces_;
  double width_ = 0;
};

constexpr double symbolHeightPerPoint = 14.0 / 13.0;
constexpr double gapBeforeText = 3;

int toPixels(double length) { return static_cast<int>(std::lround(length)); }

QImage blank(int width, int height) {
  QImage image(std::max(1, width), height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

/// How far an outline reaches in an image of this height.
int outlineReach(int height, const StatusInk& ink) {
  return ink.outline ? std::max(1, toPixels(height / 24.0)) : 0;
}

/// With the outline that the ink has: the drawn shape in its colour, widened, behind what is drawn.
QImage outlined(QImage drawn, const StatusInk& ink) {
  if (!ink.outline) { return drawn; }
  auto shape = drawn;
  QPainter filler(&shape);
  filler.setCompositionMode(QPainter::CompositionMode_SourceIn);
  filler.fillRect(shape.rect(), *ink.outline);
  filler.end();

  const int reach = outlineReach(drawn.height(), ink);
  auto whole = blank(drawn.width(), drawn.height());
  QPainter painter(&whole);
  for (int y = -reach; y <= reach; ++y) {
    for (int x = -reach; x <= reach; ++x) {
      painter.drawImage(x, y, shape);
    }
  }
  painter.drawImage(0, 0, drawn);
  return whole;
}

QPixmap symbol(const StatusImage& image, int height, const StatusInk& ink) {
  return symbolPixmap(QString::fromStdString(image.symbolName), height, ink.symbol, 1);
}

/// The margin keeps the symbol on whole pixels.
int symbolHeightInSquare(int side) {
  const int height = side <= 18 ? side - 2 : toPixels(side * 16 / 22.0);
  return (side - height) % 2 == 0 ? height : height + 1;
}

/// The largest that fits; a figure of five characters sets the least size. Each size that is tried
/// is a font that the toolkit keeps, so it begins where the width at one size says.
TabularText figureInSquare(const QString& figure, int side) {
  constexpr int least = 5;
  constexpr int measured = 36;
  const int largest = std::max(least, toPixels(side * 0.56));
  const double width = std::max(1.0, TabularText(figure, measured).width());
  const auto fits = [&](int size) { return TabularText(figure, size).width() <= side; };
  int size = std::clamp(static_cast<int>(measured * side / width), least, largest);
  while (size < largest && fits(size + 1)) {
    ++size;
  }
  while (size > least && !fits(size)) {
    --size;
  }
  return {figure, static_cast<double>(size)};
}

/// In smaller squares nothing stays whole that is thinner than a pixel.
constexpr int leastForThinLines = 22;

/// At the foot of a square; gives its height.
int drawFigureAtFoot(QPainter& painter, const QString& figure, int side, const StatusInk& ink) {
  const int margin = outlineReach(side, ink);
  const int foot = side - margin;
  const auto pixels = side < leastForThinLines ? pixelFigure(figure, ink.text) : QImage();
  if (!pixels.isNull() && pixels.width() <= side) {
    painter.drawImage((side - pixels.width()) / 2, foot - pixels.height(), pixels);
    return pixels.height();
  }
  const auto text = figureInSquare(figure, side - 2 * margin);
  painter.setPen(ink.text);
  text.draw(painter, QPointF((side - text.width()) / 2, foot));
  return toPixels(text.digitHeight());
}
}  // namespace

PanelShade shadeOfBackground(const QColor& background) {
  return qGray(background.rgb()) < 128 ? PanelShade::dark : PanelShade::light;
}

PanelShade shadeForText(const QColor& text) {
  return shadeOfBackground(text) == PanelShade::dark ? PanelShade::light : PanelShade::dark;
}

StatusInk inkFor(const StatusImage& image, PanelShade shade) {
  const auto& symbolShades = image.symbolColor ? shadesOf(*image.symbolColor) : templates;
  StatusInk ink{.symbol = symbolShades.on(shade),
                .text = shadesOf(image.textColor).on(shade),
                .outline = std::nullopt};
  if (shade == PanelShade::unknown) { ink.outline = QColor(templates.onLight); }
  return ink;
}

PointSize symbolMeasure(const std::string& name, double pointSize) {
  const int height = toPixels(pointSize * symbolHeightPerPoint);
  return {.width = std::round(height * symbolAspectRatio(QString::fromStdString(name))),
          .height = static_cast<double>(height)};
}

PointSize textMeasure(const std::string& text, double pixelSize) {
  const TabularText measured(QString::fromStdString(text), pixelSize);
  return {.width = measured.width(), .height = measured.height()};
}

QImage drawWide(const StatusImage& image, int height, const StatusInk& ink) {
  if (image.text.empty() || image.size.height <= 0) { return drawSymbolSquare(image, height, ink); }
  const auto scale = height / image.size.height;
  const auto drawnSymbol =
      symbol(image, toPixels(image.symbolPointSize * symbolHeightPerPoint * scale), ink);
  const TabularText text(QString::fromStdString(image.text), image.textPointSize * scale);
  const int textStart = drawnSymbol.width() + toPixels(gapBeforeText * scale);

  const int reach = outlineReach(height, ink);
  const int width = textStart + static_cast<int>(std::ceil(text.width())) + 2 * reach;
  auto whole = blank(width, height);
  QPainter painter(&whole);
  painter.translate(reach, 0);
  painter.drawPixmap(0, (height - drawnSymbol.height()) / 2, drawnSymbol);
  painter.setPen(ink.text);
  text.draw(painter, QPointF(textStart, std::round((height + text.digitHeight()) / 2)));
  painter.end();
  return outlined(std::move(whole), ink);
}

QImage drawSymbolSquare(const StatusImage& image, int side, const StatusInk& ink) {
  const auto drawn = symbol(image, symbolHeightInSquare(side), ink);
  auto whole = blank(side, side);
  QPainter painter(&whole);
  painter.drawPixmap((side - drawn.width()) / 2, (side - drawn.height()) / 2, drawn);
  painter.end();
  return outlined(std::move(whole), ink);
}

QImage drawFigureSquare(const StatusImage& image, int side, const StatusInk& ink) {
  if (image.text.empty()) { return drawSymbolSquare(image, side, ink); }
  const int margin = outlineReach(side, ink);
  const int gap = std::max(1, side / 22);

  auto whole = blank(side, side);
  QPainter painter(&whole);
  const auto figure = shortFigure(QString::fromStdString(image.text));
  const int figureHeight = drawFigureAtFoot(painter, figure, side, ink);
  const auto drawn = symbol(image, side - 2 * margin - figureHeight - gap, ink);
  for (int strokes = side < leastForThinLines ? 3 : 1; strokes > 0; --strokes) {
    painter.drawPixmap((side - drawn.width()) / 2, margin, drawn);
  }
  painter.end();
  return outlined(std::move(whole), ink);
}
}  // namespace orvane
