#include "platform/desktop/status/xembed/docked_window.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "platform/desktop/status/drawing/status_drawing.h"
#include "platform/desktop/status/xembed/panel_background.h"

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr int firstHeight = 22;
constexpr int largestIcon = 24;
constexpr int smallestIcon = 12;
/// Left and right of a wide image, so that it keeps away from its neighbours and the screen's edge.
constexpr int wideMargin = 4;
constexpr auto panelPaintingTime = 400ms;

PanelShade shadeForText(const QColor& text) {
  return shadeOfBackground(text) == PanelShade::dark ? PanelShade::light : PanelShade::dark;
}

QColor average(const QImage& image) {
  return image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

}  // namespace

DockedWindow::DockedWindow(Executor& executor, Look look, std::function<void()> click,
                           std::function<void(QPoint)> menu)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint),
      executor_(executor),
      look_(look),
      click_(std::move(click)),
      menu_(std::move(menu)) {
  setObjectName(QStringLiteral("statusItem"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAttribute(look_.alpha ? Qt::WA_TranslucentBackground : Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::NoFocus);
  resize(firstHeight, firstHeight);
}

void DockedWindow::setContent(const StatusContent& content) {
  content_ = content;
  setToolTip(QString::fromStdString(look_.shape == Shape::square ? toolTipWithText(content)
                                                                 : content.toolTip));
  const auto name =
      content.image ? QString::fromStdString(content.image->accessibilityDescription) : QString();
  setAccessibleName(name);
  setWindowTitle(name);
  redraw();
}

int DockedWindow::iconHeight() const { return std::clamp(height(), smallestIcon, largestIcon); }

PanelShade DockedWindow::shade() const {
  if (!background_.isNull()) { return shadeOfBackground(average(background_)); }
  if (look_.foreground) { return shadeForText(*look_.foreground); }
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
  // Trays take the least size for the wanted one, and some of them only its proportions.
  const int drawnWidth = drawn_.deviceIndependentSize().toSize().width();
  const int margins = drawnWidth > iconHeight() ? 2 * wideMargin : 0;
  const QSize needed(std::max(drawnWidth + margins, smallestIcon), iconHeight());
  if (minimumSize() == needed) { return; }
  setMinimumSize(needed);
  resize(needed.width(), height());
}

/// The panel paints itself around a window that is new or has moved, in its own time.
void DockedWindow::readBackgroundSoon() {
  readBackground();
  readingBackground_.emplace(executor_, panelPaintingTime, [this] { readBackground(); });
}

void DockedWindow::readBackground() {
  if (!isVisible()) { return; }
  auto background = panelBackground(static_cast<xcb_window_t>(winId()));
  background.setDevicePixelRatio(devicePixelRatio());
  if (background == background_) { return; }
  background_ = std::move(background);
  redraw();
}

void DockedWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (background_.isNull()) {
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(rect(),
                     look_.alpha ? QColor(Qt::transparent) : palette().color(backgroundRole()));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  } else {
    painter.drawImage(rect(), background_);
  }
  const auto size = drawn_.deviceIndependentSize().toSize();
  painter.drawImage((width() - size.width()) / 2, (height() - size.height()) / 2, drawn_);
}

void DockedWindow::resizeEvent(QResizeEvent* /*event*/) {
  redraw();
  readBackgroundSoon();
}

void DockedWindow::moveEvent(QMoveEvent* /*event*/) { readBackgroundSoon(); }

void DockedWindow::showEvent(QShowEvent* /*event*/) { readBackgroundSoon(); }

void DockedWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (!rect().contains(event->position().toPoint())) { return; }
  if (event->button() == Qt::LeftButton) { click_(); }
  if (event->button() == Qt::RightButton) { menu_(event->globalPosition().toPoint()); }
}

}  // namespace orvane
