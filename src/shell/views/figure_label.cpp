#include "shell/views/figure_label.h"

#include <QFontMetrics>
#include <QResizeEvent>
#include <algorithm>

namespace orvane {
namespace {

/// The share of its size down to which a figure may shrink.
constexpr double smallestShare = 0.45;

int textWidth(const QFont& font, const QString& text) {
  return QFontMetrics(font).horizontalAdvance(text) + 2;  // glyphs may lean out of their advance
}

}  // namespace

QSize FigureLabel::sizeHint() const {
  const auto font = theme::textFont(style());
  return {textWidth(font, text()), QFontMetrics(font).height()};
}

QSize FigureLabel::minimumSizeHint() const {
  const auto whole = sizeHint();
  return {static_cast<int>(whole.width() * smallestShare), whole.height()};
}

void FigureLabel::resizeEvent(QResizeEvent* event) {
  TextLabel::resizeEvent(event);
  applyFont();
}

void FigureLabel::applyFont() {
  auto fitting = theme::textFont(style());
  const int wanted = textWidth(fitting, text());
  if (wanted > width() && width() > 0) {
    const auto share = std::max(smallestShare, static_cast<double>(width()) / wanted);
    fitting.setPixelSize(static_cast<int>(fitting.pixelSize() * share));
  }
  if (fitting != font()) { setFont(fitting); }
}

}  // namespace orvane
