#include "shell/views/equal_digits.h"
#include <QFontMetricsF>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>
#include <algorithm>
#include <array>
#include <cmath>

namespace orvane {
namespace {
constexpr double negligible = 0.01;

/// How much wider the widest digit is than each.
class DigitPadding {
 public:
  explicit DigitPadding(const QFont& font) {
    const QFontMetricsF metrics(font);
    for (std::size_t digit = 0; digit < widths_.size(); ++digit) {
      // As a text: the width of a character knows nothing of the font's features.
      widths_[digit] = metrics.horizontalAdvance(QString::number(digit));
    }
    widest_ = std::ranges::max(widths_);
  }

  [[nodiscard]] bool isNeeded() const { return widest_ - std::ranges::min(widths_) > negligible; }
  [[nodiscard]] double of(QChar character) const {
    const bool isDigit = character >= u'0' && character <= u'9';
    return isDigit ? widest_ - widths_[character.unicode() - u'0'] : 0;
  }

 private:
  std::array<double, 10> widths_{};
  double widest_ = 0;
};

/// The formats that set each digit in the middle of its cell: space belongs to the character before
/// it, so a digit's own half goes there.
QList<QTextLayout::FormatRange> digitCells(const QFont& font, const QString& text) {
  QList<QTextLayout::FormatRange> cells;
  const DigitPadding padding(font);
  if (!padding.isNeeded()) { return cells; }
  for (int i = 0; i < text.size(); ++i) {
    const double next = i + 1 < text.size() ? padding.of(text[i + 1]) : 0;
    const double space = (padding.of(text[i]) + next) / 2;
    if (space < negligible) { continue; }
    QTextCharFormat format;
    format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    format.setFontLetterSpacing(space);
    cells.append({.start = i, .length = 1, .format = format});
  }
  return cells;
}
}  // namespace

int widthWithEqualDigits(const QFont& font, const QString& text) {
  double width = QFontMetricsF(font).horizontalAdvance(text);
  const DigitPadding padding(font);
  for (const auto character : text) {
    width += padding.of(character);
  }
  return static_cast<int>(std::ceil(width));
}

void drawWithEqualDigits(QPainter& painter, const QRect& box, const QString& text,
                         Qt::Alignment alignment) {
  const auto font = painter.font();
  auto shown = text;
  if (const int wanted = widthWithEqualDigits(font, text); wanted > box.width()) {
    const QFontMetrics metrics(font);
    const int paddings = wanted - metrics.horizontalAdvance(text);
    shown = metrics.elidedText(text, Qt::ElideRight, box.width() - paddings);
  }
  QTextOption option(alignment | Qt::AlignAbsolute);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  option.setWrapMode(QTextOption::NoWrap);
  QTextLayout layout(shown, font);
  layout.setTextOption(option);
  layout.setFormats(digitCells(font, shown));
  layout.beginLayout();
  auto line = layout.createLine();
  line.setLineWidth(box.width());
  layout.endLayout();
  layout.draw(&painter,
              {static_cast<double>(box.left()), box.top() + (box.height() - line.height()) / 2});
}

void equalizeDigits(QTextDocument& document) {
  QTextCursor cursor(&document);
  for (const auto& cell : digitCells(document.defaultFont(), document.toPlainText())) {
    cursor.setPosition(cell.start);
    cursor.setPosition(cell.start + cell.length, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(cell.format);
  }
}
}  // namespace orvane
