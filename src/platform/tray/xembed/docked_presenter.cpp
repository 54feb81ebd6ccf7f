#include "platform/tray/xembed/docked_presenter.h"
#include <QMouseEvent>
#include <QPainter>
#include <QRect>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>
#include "platform/x11/x11_display.h"

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

/// The panel around a window: its outermost parent below the root.
xcb_window_t outermostParent(const X11Display& display, xcb_window_t window) {
  const auto root = display.root();
  for (auto parent = display.parentOf(window); parent != root; parent = display.parentOf(window)) {
    if (parent == XCB_WINDOW_NONE) { return XCB_WINDOW_NONE; }
    window = parent;
  }
  return window;
}

/// An image that runs from a line above it to one below, or from a column left of it to one right;
/// one of the two may be missing.
QImage blendBetween(const QImage& near, const QImage& far, const QSize& size) {
  if (near.isNull() && far.isNull()) { return {}; }
  QImage whole(size, QImage::Format_RGB32);
  QPainter painter(&whole);
  painter.drawImage(whole.rect(), near.isNull() ? far : near);
  if (near.isNull() || far.isNull()) { return whole; }

  const bool isVertical = near.height() == 1;
  const int steps = isVertical ? size.height() : size.width();
  for (int step = 0; step < steps; ++step) {
    const QRect line =
        isVertical ? QRect(0, step, size.width(), 1) : QRect(step, 0, 1, size.height());
    painter.setOpacity((step + 1.0) / (steps + 1.0));
    painter.drawImage(line, far);
  }
  return whole;
}

/// What a window in a panel would show if panels let anything shine through: trays with and
/// without a compositing manager paint black behind a transparent window as a rule. It is put
/// together from the panel's pixels right above and below the window, or left and right of one
/// that fills the panel's height. Null when there is nothing to read, for example before the
/// window is on the screen. In device pixels.
QImage panelBackground(xcb_window_t window) {
  const auto display = X11Display::ofApplication();
  if (!display) { return {}; }
  const auto panel = outermostParent(*display, window);
  if (panel == XCB_WINDOW_NONE || panel == window) { return {}; }
  const auto panelArea = display->areaOf(panel);
  const auto area = display->areaOf(window);
  const auto read = [&](const QRect& edge) {
    return panelArea.contains(edge) ? display->picture(edge) : QImage();
  };
  const auto above = read(QRect(area.x(), area.y() - 1, area.width(), 1));
  const auto below = read(QRect(area.x(), area.bottom() + 1, area.width(), 1));
  if (!above.isNull() || !below.isNull()) { return blendBetween(above, below, area.size()); }
  const auto left = read(QRect(area.x() - 1, area.y(), 1, area.height()));
  const auto right = read(QRect(area.right() + 1, area.y(), 1, area.height()));
  return blendBetween(left, right, area.size());
}

using namespace std::chrono_literals;

constexpr auto dockingPatience = 3s;
}  // namespace

DockedWindow::DockedWindow(Executor& executor, Look look, StatusRequests requests)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint),
      executor_(executor),
      look_(look),
      requests_(std::move(requests)) {
  setObjectName(QStringLiteral("statusItem"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAttribute(look_.alpha ? Qt::WA_TranslucentBackground : Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::NoFocus);
  resize(firstHeight, firstHeight);
}

void DockedWindow::setContent(const StatusContent& content) {
  content_ = content;
  setToolTip(QString::fromStdString(look_.shape == Shape::square ? content.toolTipWithText()
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
  if (event->button() == Qt::LeftButton) { requests_.click(); }
  if (event->button() == Qt::RightButton) {
    requests_.popUpMenu(event->globalPosition().toPoint());
  }
}

DockedPresenter::DockedPresenter(Presentation presentation, TrayManager& manager,
                                 Executor& executor, StatusRequests requests,
                                 std::function<void()> failed)
    : shape_(presentation == Presentation::dockedWide ? DockedWindow::Shape::wide
                                                      : DockedWindow::Shape::square),
      manager_(manager),
      executor_(executor),
      requests_(std::move(requests)),
      failed_(std::move(failed)) {
  managerObserver_ = manager_.observe([this] { dock(); });
  takenObserver_ = manager_.observeTaken([this](xcb_window_t icon) {
    // Shown earlier, it would stand on the screen for a moment.
    if (window_ && icon == windowId()) { window_->show(); }
  });
}

void DockedPresenter::show(const StatusContent& content) {
  if (content_ == content) { return; }
  content_ = content;
  if (window_) {
    window_->setContent(content);
  } else {
    dock();
  }
}

void DockedPresenter::dock() {
  // A tray that goes leaves its windows to the screen, or takes them with it.
  window_.reset();
  check_.reset();
  if (!content_ || manager_.window() == XCB_WINDOW_NONE) { return; }
  window_ = std::make_unique<DockedWindow>(
      executor_,
      DockedWindow::Look{
          .shape = shape_, .alpha = manager_.wantsAlpha(), .foreground = manager_.foreground()},
      requests_);
  window_->setContent(*content_);
  manager_.requestDock(windowId());
  check_.emplace(executor_, dockingPatience, [this] {
    if (!manager_.hasTaken(windowId())) { failed_(); }
  });
}

xcb_window_t DockedPresenter::windowId() const {
  return static_cast<xcb_window_t>(window_->winId());
}
}  // namespace orvane
