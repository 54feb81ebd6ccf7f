#include "shell/views/thin_scroll_bar.h"

#include <QPainter>
#include <QStyleOptionSlider>

#include "shell/views/theme.h"

namespace orvane {
namespace {

constexpr double inset = 3;
constexpr double restingOpacity = 0.35;
constexpr double touchedOpacity = 0.7;

}  // namespace

ThinScrollBar::ThinScrollBar(Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent) {
  setAttribute(Qt::WA_Hover);
  setAttribute(Qt::WA_OpaquePaintEvent, false);  // the ground shows beside the handle
}

QSize ThinScrollBar::sizeHint() const {
  auto size = QScrollBar::sizeHint();
  if (orientation() == Qt::Vertical) {
    size.setWidth(theme::scrollBarWidth);
  } else {
    size.setHeight(theme::scrollBarWidth);
  }
  return size;
}

void ThinScrollBar::paintEvent(QPaintEvent* /*event*/) {
  if (minimum() == maximum()) { return; }
  QStyleOptionSlider option;
  initStyleOption(&option);
  const auto handle = QRectF(style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                     QStyle::SC_ScrollBarSlider, this))
                          .adjusted(inset, inset, -inset, -inset);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const auto opacity = isSliderDown() || underMouse() ? touchedOpacity : restingOpacity;
  painter.setBrush(
      theme::withOpacity(theme::textColor(theme::TextColor::secondary, palette()), opacity));
  const auto radius = std::min(handle.width(), handle.height()) / 2;
  painter.drawRoundedRect(handle, radius, radius);
}

void useThinScrollBars(QAbstractScrollArea& area) {
  area.setVerticalScrollBar(new ThinScrollBar(Qt::Vertical, &area));
  area.setHorizontalScrollBar(new ThinScrollBar(Qt::Horizontal, &area));
  area.setCornerWidget(new QWidget(&area));  // in place of the style's darker square
}

}  // namespace orvane
