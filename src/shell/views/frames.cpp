#include "shell/views/frames.h"

#include <QPainter>

namespace orvane {
namespace {

void drawRoundedFrame(QWidget& widget, int radius, const QColor& fill, const QColor& outline) {
  QPainter painter(&widget);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(outline.isValid() ? QPen(outline, 1) : QPen(Qt::NoPen));
  painter.setBrush(fill);
  // A line one pixel wide is sharp when it runs through the middle of the pixels.
  const auto inset = outline.isValid() ? 0.5 : 0.0;
  painter.drawRoundedRect(QRectF(widget.rect()).adjusted(inset, inset, -inset, -inset), radius,
                          radius);
}

}  // namespace

Card::Card(theme::MarkColor tint, QWidget* parent)
    : QWidget(parent), tint_(tint), rows_(new QVBoxLayout(this)) {
  rows_->setContentsMargins(theme::cardPadding, theme::cardPadding, theme::cardPadding,
                            theme::cardPadding);
  rows_->setSpacing(theme::cardSpacing);
}

void Card::paintEvent(QPaintEvent* /*event*/) {
  const auto tint = theme::markColor(tint_, palette());
  drawRoundedFrame(*this, theme::cardRadius, theme::withOpacity(tint, theme::cardFillOpacity),
                   theme::withOpacity(tint, theme::cardOutlineOpacity));
}

Panel::Panel(QWidget* parent) : QWidget(parent), rows_(new QVBoxLayout(this)) {
  // Scroll bars have corners of their own, so they end where the rounded ones begin.
  rows_->setContentsMargins(1, theme::panelRadius / 2, 1, theme::panelRadius / 2);
  rows_->setSpacing(0);
}

void Panel::paintEvent(QPaintEvent* /*event*/) {
  drawRoundedFrame(*this, theme::panelRadius, palette().color(QPalette::Base),
                   theme::outlineColor(palette()));
}

void Chip::paintEvent(QPaintEvent* /*event*/) {
  drawRoundedFrame(*this, theme::chipRadius, theme::chipColor(palette()), QColor());
}

Divider::Divider(Qt::Orientation orientation, QWidget* parent) : QWidget(parent) {
  if (orientation == Qt::Horizontal) {
    setFixedHeight(1);
  } else {
    setFixedWidth(1);
  }
}

void Divider::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), theme::outlineColor(palette()));
}

}  // namespace orvane
