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

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }
}  // namespace

EqualDigits::EqualDigits(const QFont& font) : font_(font) {
  const QFontMetricsF metrics(font);
  for (std::size_t digit = 0; digit < widths_.size(); ++digit) {
    // As a text: the width of a character knows nothing of the font's features.
    widths_[digit] = metrics.horizontalAdvance(QString::number(digit));
  }
  widest_ = std::ranges::max(widths_);
  isPadded_ = widest_ - std::ranges::min(widths_) > negligible;
}

const EqualDigits& EqualDigits::of(const QFont& font, std::optional<EqualDigits>& kept) {
  if (!kept || kept->font_ != font) { kept.emplace(font); }
  return *kept;
}

double EqualDigits::paddingOf(QChar character) const {
  return isDigit(character) ? widest_ - widths_[character.unicode() - u'0'] : 0;
}

QString EqualDigits::formOf(QString text) {
  std::ranges::replace_if(text, isDigit, u'0');
  return text;
}

/// The formats that set each digit in the middle of its cell: space belongs to the character before
/// it, so a digit's own half goes there.
QList<QTextLayout::FormatRange> EqualDigits::digitCells(const QString& text) const {
  QList<QTextLayout::FormatRange> cells;
  if (!isPadded_) { return cells; }
  for (int i = 0; i < text.size(); ++i) {
    const double next = i + 1 < text.size() ? paddingOf(text[i + 1]) : 0;
    const double space = (paddingOf(text[i]) + next) / 2;
    if (space < negligible) { continue; }
    QTextCharFormat format;
    format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    format.setFontLetterSpacing(space);
    cells.append({.start = i, .length = 1, .format = format});
  }
  return cells;
}

int EqualDigits::widthOf(const QString& text) const {
  const auto digits = std::ranges::count_if(text, isDigit);
  const double width = QFontMetricsF(font_).horizontalAdvance(formOf(text));
  return static_cast<int>(std::ceil(width + static_cast<double>(digits) * paddingOf(u'0')));
}

void EqualDigits::draw(QPainter& painter, const QRect& box, const QString& text,
                       Qt::Alignment alignment) const {
  auto shown = text;
  if (const int wanted = widthOf(text); wanted > box.width()) {
    const QFontMetrics metrics(font_);
    const int paddings = wanted - metrics.horizontalAdvance(text);
    shown = metrics.elidedText(text, Qt::ElideRight, box.width() - paddings);
  }
  QTextOption option(alignment | Qt::AlignAbsolute);
  option.setTextDirection(Qt::LayoutDirectionAuto);
  option.setWrapMode(QTextOption::NoWrap);
  QTextLayout layout(shown, font_);
  layout.setTextOption(option);
  layout.setFormats(digitCells(shown));
  layout.beginLayout();
  auto line = layout.createLine();
  line.setLineWidth(box.width());
  layout.endLayout();
  layout.draw(&painter,
              {static_cast<double>(box.left()), box.top() + (box.height() - line.height()) / 2});
}

void EqualDigits::applyTo(QTextDocument& document) const {
  QTextCursor cursor(&document);
  for (const auto& cell : digitCells(document.toPlainText())) {
    cursor.setPosition(cell.start);
    cursor.setPosition(cell.start + cell.length, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(cell.format);
  }
}
}  // namespace orvane
