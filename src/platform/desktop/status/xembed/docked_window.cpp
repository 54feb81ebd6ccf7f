#include "platform/desktop/status/xembed/docked_window.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/desktop/status/drawing/status_drawing.h"
#include "platform/desktop/status/xembed/panel_background.h"

namespace orvane {
namespace {

constexpr int firstHeight = 22;
constexpr int largestIcon = 24;
constexpr int smallestIcon = 12;

PanelShade shadeForText(const QColor& text) {
  return shadeOfBackground(text) == PanelShade::dark ? PanelShade::light : PanelShade::dark;
}

QColor average(const QImage& image) {
  return image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

}  // namespace

DockedWindow::DockedWindow(Look look, std::function<void()> click, std::function<void(QPoint)> menu)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint),
      look_(std::move(look)),
      click_(std::move(click)),
      menu_(std::move(menu)) {
  setObjectName(QStringLiteral("statusItem"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAttribute(look_.alpha ? Qt::WA_TranslucentBackground : Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::NoFocus);
  resize(firstHeight, firstHeight);
}

void DockedWindow::show(const StatusContent& content) {
  content_ = content;
  setToolTip(QString::fromStdString(content.toolTip));
  const auto name =
      content.image ? QString::fromStdString(content.image->accessibilityDescription) : QString();
  setAccessibleName(name);
  setWindowTitle(name);
  redraw();
}

int DockedWindow::iconHeight() const { return std::clamp(height(), smallestIcon, largestIcon); }

PanelShade DockedWindow::shade() const {
  if (look_.foreground) return shadeForText(*look_.foreground);
  if (!background_.isNull()) return shadeOfBackground(average(background_));
  return content_.shade;
}

void DockedWindow::redraw() {
  drawn_ = {};
  if (content_.image) {
    const auto ink = inkFor(*content_.image, shade());
    const auto ratio = devicePixelRatio();
    const auto draw = look_.shape == Shape::wide ? drawWide : drawFigureSquare;
    drawn_ = draw(*content_.image, static_cast<int>(std::lround(iconHeight() * ratio)), ink);
    drawn_.setDevicePixelRatio(ratio);
  }
  askForWidth();
  update();
}

void DockedWindow::askForWidth() {
  const auto size = drawn_.deviceIndependentSize().toSize();
  const int needed = std::max(size.width(), smallestIcon);
  if (minimumWidth() == needed) return;
  setMinimumSize(needed, smallestIcon);
  resize(needed, height());
}

const QImage& DockedWindow::background() {
  if (background_.isNull()) {
    background_ = panelBackground(static_cast<xcb_window_t>(winId()), size() * devicePixelRatio());
    background_.setDevicePixelRatio(devicePixelRatio());
    if (!background_.isNull()) redraw();
  }
  return background_;
}

void DockedWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (look_.alpha) {
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  } else {
    painter.fillRect(rect(), palette().window());
    painter.drawImage(0, 0, background());
  }
  const auto size = drawn_.deviceIndependentSize().toSize();
  painter.drawImage((width() - size.width()) / 2, (height() - size.height()) / 2, drawn_);
}

void DockedWindow::resizeEvent(QResizeEvent* /*event*/) {
  background_ = {};
  redraw();
}

void DockedWindow::moveEvent(QMoveEvent* /*event*/) {
  background_ = {};
  update();
}

void DockedWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (!rect().contains(event->position().toPoint())) return;
  if (event->button() == Qt::LeftButton) click_();
  if (event->button() == Qt::RightButton) menu_(event->globalPosition().toPoint());
}

}  // namespace orvane
