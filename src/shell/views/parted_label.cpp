#include "shell/views/parted_label.h"
#include <algorithm>
#include "shell/views/qt_text.h"

namespace orvane {
namespace {
const QString betweenParts = QStringLiteral(" · ");
const QString dot = QChar(QChar::Nbsp) + QStringLiteral("·");  ///< at the end of a part

int sideMargins(const QWidget& widget) {
  return widget.contentsMargins().left() + widget.contentsMargins().right();
}
}  // namespace

QString breakingBetweenParts(const QString& text, const QFontMetrics& metrics, int width) {
  auto parts = text.split(betweenParts);
  if (parts.size() < 2) { return text; }
  for (auto& part : parts) {
    const QString whole = QString(part).replace(u' ', QChar::Nbsp);
    if (metrics.horizontalAdvance(whole + dot) <= width) { part = whole; }
  }
  return parts.join(dot + u' ');
}

PartedLabel::PartedLabel(theme::TextStyle style, theme::TextColor color, QWidget* parent)
    : TextLabel(style, color, parent) {
  setWordWrap(true);
}

void PartedLabel::showText(std::string_view text) {
  const auto spoken = toQString(text);
  if (spoken == accessibleName()) { return; }
  setAccessibleName(spoken);
  text_ = drawn(text);
  breakAnew();
}

QString PartedLabel::brokenFor(int width) const {
  return breakingBetweenParts(text_, QFontMetrics(font()), width - sideMargins(*this));
}

int PartedLabel::heightForWidth(int width) const {
  return heights_.at(width, *this, [&] {
    const auto broken = brokenFor(width);
    if (broken == text()) { return TextLabel::heightForWidth(width); }
    const QRect room(0, 0, width - sideMargins(*this), QWIDGETSIZE_MAX);
    return QFontMetrics(font()).boundingRect(room, Qt::TextWordWrap, broken).height();
  });
}

QSize PartedLabel::minimumSizeHint() const {
  const QFontMetrics metrics(font());
  int widest = 0;
  for (const auto& word : text_.split(u' ')) {
    widest = std::max(widest, metrics.horizontalAdvance(word));
  }
  return {widest + sideMargins(*this), metrics.height()};
}

int PartedLabel::widthOfParts() const {
  const auto parts = text_.split(betweenParts);
  int widest = minimumSizeHint().width();
  for (const auto& part : parts.size() > 1 ? parts : QStringList()) {
    const int width = QFontMetrics(font()).horizontalAdvance(part + dot);
    widest = std::max(widest, width + sideMargins(*this));
  }
  return widest;
}

void PartedLabel::resizeEvent(QResizeEvent* event) {
  TextLabel::resizeEvent(event);
  breakAnew();
}

void PartedLabel::applyFont() {
  TextLabel::applyFont();
  breakAnew();
}

void PartedLabel::breakAnew() {
  const auto broken = brokenFor(width());
  if (broken != text()) { replaceText(broken); }
}
}  // namespace orvane
