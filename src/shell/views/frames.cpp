#include "shell/views/frames.h"
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <algorithm>
#include "platform/color/contrast.h"
#include "shell/views/flow_layout.h"

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

constexpr double handleInset = 3;
constexpr double restingOpacity = 0.35;
constexpr double touchedOpacity = 0.7;

/// Lets a vertical scroll bar lie over the padding of what scrolls, in every style alike, so that
/// nothing becomes narrower when the bar comes.
class OverlappingStyle final : public QProxyStyle {
 public:
  explicit OverlappingStyle(Qt::Orientation orientation)
      : QProxyStyle(QStringLiteral("fusion")), orientation_(orientation) {}

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    const bool isExtent =
        metric == PM_ScrollBarExtent ||
        (metric == PM_ScrollView_ScrollBarOverlap && orientation_ == Qt::Vertical);
    return isExtent ? theme::scrollBarWidth : QProxyStyle::pixelMetric(metric, option, widget);
  }

 private:
  Qt::Orientation orientation_;
};

class ThinScrollBar final : public QScrollBar {
 public:
  ThinScrollBar(Qt::Orientation orientation, QWidget* parent)
      : QScrollBar(orientation, parent), style_(orientation) {
    setStyle(&style_);
    setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_OpaquePaintEvent, false);  // the ground shows beside the handle
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (minimum() == maximum()) { return; }
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto handle = QRectF(style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                       QStyle::SC_ScrollBarSlider, this))
                            .adjusted(handleInset, handleInset, -handleInset, -handleInset);
    const auto opacity = isSliderDown() || underMouse() ? touchedOpacity : restingOpacity;
    const auto color = theme::textColor(theme::TextColor::secondary, palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(between(palette().color(QPalette::Window), color, opacity));
    const auto radius = std::min(handle.width(), handle.height()) / 2;
    painter.drawRoundedRect(handle, radius, radius);
  }

 private:
  OverlappingStyle style_;
};
}  // namespace

Surface::Surface(theme::Ground ground, int radius, QWidget* parent)
    : QWidget(parent), ground_(ground), radius_(radius) {
  applyGround();
}

void Surface::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) {
    applyGround();
  }
}

void Surface::applyGround() {
  setPalette(theme::groundPalette(ground_, theme::surroundings(*this)));
  // One that stands on this one has set its own window colour, so it does not hear of this one's.
  for (auto* const above : findChildren<Surface*>(Qt::FindDirectChildrenOnly)) {
    above->applyGround();
  }
}

void Surface::paintEvent(QPaintEvent* /*event*/) {
  const auto around = theme::surroundings(*this);
  drawRoundedFrame(*this, radius_, theme::groundColor(ground_, around),
                   theme::groundOutlineColor(ground_, around));
}

Card::Card(theme::Ground ground, QWidget* parent)
    : Surface(ground, theme::cardRadius, parent), rows_(new QVBoxLayout(this)) {
  rows_->setContentsMargins(theme::cardPadding, theme::cardPadding, theme::cardPadding,
                            theme::cardPadding);
  rows_->setSpacing(theme::cardSpacing);
}

Panel::Panel(QWidget* parent)
    : Surface(theme::Ground::list, theme::panelRadius, parent), rows_(new QVBoxLayout(this)) {
  // Scroll bars have corners of their own, so they end where the rounded ones begin.
  rows_->setContentsMargins(1, theme::panelRadius / 2, 1, theme::panelRadius / 2);
  rows_->setSpacing(0);
}

Chip::Chip(QWidget* parent) : Surface(theme::Ground::chip, theme::chipRadius, parent) {}

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

void useThinScrollBars(QAbstractScrollArea& area) {
  area.setVerticalScrollBar(new ThinScrollBar(Qt::Vertical, &area));
  area.setHorizontalScrollBar(new ThinScrollBar(Qt::Horizontal, &area));
  area.setCornerWidget(new QWidget(&area));  // in place of the style's darker square
}

ColumnArea::ColumnArea(const QString& accessibleName, int spacing, QWidget* parent)
    : QScrollArea(parent) {
  setAccessibleName(accessibleName);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);  // keys that nothing within makes use of scroll nevertheless
  setWidgetResizable(true);
  useThinScrollBars(*this);
  auto* const content = new QWidget(this);
  column_ = new QVBoxLayout(content);
  column_->setContentsMargins(theme::windowPadding, theme::windowPadding, theme::windowPadding,
                              theme::windowPadding);
  column_->setSpacing(spacing);
  setWidget(content);
  viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  connect(qApp, &QApplication::focusChanged, this, &ColumnArea::followFocus);
}

// An area itself does so only while the Tab key goes from one of its widgets to another.
void ColumnArea::followFocus(QWidget* from, QWidget* to) {
  const bool isByMouse = QGuiApplication::mouseButtons() != Qt::NoButton;
  if (from && to && widget()->isAncestorOf(to) && !isByMouse) { ensureWidgetVisible(to); }
}

bool ColumnArea::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    viewport()->update();
  }
  return QScrollArea::event(event);
}

void ColumnArea::paintEvent(QPaintEvent* /*event*/) {
  if (!hasFocus() || !window()->testAttribute(Qt::WA_KeyboardFocusChange)) { return; }
  QPainter painter(viewport());
  painter.setPen(QPen(theme::accentColor(palette()), 2));
  painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

SectionHeader::SectionHeader(const QString& title, QWidget* parent)
    : QWidget(parent),
      row_(new FlowLayout(FlowLayout::Align::baseline, theme::smallSpacing, 0, this)),
      subtitle_(new TextLabel(theme::TextStyle::callout, theme::TextColor::secondary, this)) {
  row_->addWidget(
      new TextLabel(title, theme::TextStyle::headline, theme::TextColor::primary, this));
  row_->addWidget(subtitle_);
  row_->addStretch();
}

void SectionHeader::addControl(QWidget* control) { row_->addWidget(control); }
}  // namespace orvane
