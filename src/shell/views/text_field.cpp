#include "shell/views/text_field.h"
#include <QEvent>
#include <QPainter>
#include <utility>
#include "shell/views/colors.h"

namespace orvane {
namespace {
constexpr int textMargin = 6;
constexpr double radius = 4;
constexpr double markWidth = 2;
}  // namespace

// Styles draw the frames of fields so faintly that they vanish in dark palettes, and leave no way
// to say how they should be seen. So the field has no frame of the style's, and its ground, which
// the style would fill to the corners, is none to the style.
TextField::TextField(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  setTextMargins(textMargin, 0, textMargin, 0);
  applyPalette();
}

void TextField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) {
    applyPalette();
  }
}

void TextField::applyPalette() {
  auto own = theme::fieldPalette(theme::surroundings(*this));
  own.setColor(QPalette::Base, Qt::transparent);
  setPalette(own);
}

void TextField::markRefused(bool isRefused) {
  if (std::exchange(isRefused_, isRefused) != isRefused) { update(); }
}

QPen TextField::outline(const QPalette& around) const {
  if (isRefused_) { return {theme::textColor(theme::TextColor::red, around), markWidth}; }
  if (hasFocus()) { return {theme::accentColor(around), markWidth}; }
  return {theme::fieldOutlineColor(around), 1};
}

void TextField::paintEvent(QPaintEvent* event) {
  {
    const auto around = theme::surroundings(*this);
    const auto pen = outline(around);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setBrush(around.color(QPalette::Base));
    const auto inset = pen.widthF() / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
  }
  QLineEdit::paintEvent(event);  // it opens a painter of its own
}
}  // namespace orvane
