#include "platform/tray/xembed/docked_presenter.h"
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>
#include "platform/tray/xembed/panel_around.h"

namespace orvane {
namespace {
using namespace std::chrono_literals;

constexpr int firstHeight = 22;
constexpr int largestIcon = 24;
constexpr int smallestIcon = 12;
/// Left and right of a wide image, so that it keeps away from its neighbours and the screen's edge.
constexpr int wideMargin = 4;
constexpr auto panelPaintingTime = 400ms;
constexpr int mostFittings = 4;

QColor average(const QImage& image) {
  return image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

constexpr auto dockingPatience = 3s;
}  // namespace

DockedWindow::DockedWindow(Executor& executor, Look look, StatusRequests requests)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint),
      executor_(executor),
      look_(look),
      requests_(std::move(requests)),
      panelScale_(panelScale()) {
  setObjectName(QStringLiteral("statusItem"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setAttribute(look_.alpha ? Qt::WA_TranslucentBackground : Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::NoFocus);
  resize(firstHeight, firstHeight);
}

void DockedWindow::setContent(const StatusContent& content) {
  content_ = content;
  fittings_ = mostFittings;
  const auto name =
      content.image ? QString::fromStdString(content.image->accessibilityDescription) : QString();
  setAccessibleName(name);
  setWindowTitle(name);
  readBackgroundSoon();  // some panels change their look, or make room, without a word
  redraw();
}

void DockedWindow::handlePanel(const std::optional<QColor>& foreground) {
  look_.foreground = foreground;
  followScale();
  readBackgroundSoon();
  redraw();
}

/// GTK's panels keep an icon in the pixels that it had when they are enlarged, until it asks for
/// other ones: they answer with those that it should have.
void DockedWindow::followScale() {
  const int scale = panelScale();
  const int before = std::exchange(panelScale_, scale);
  if (scale != before) { resize(size() * scale / before); }
}

/// A square fills what it gets. A wide image may get the height of the whole panel; panels that GTK
/// enlarges give pixels in larger numbers, and where Qt enlarges as well, our own are larger
/// already.
int DockedWindow::iconHeight() const {
  if (look_.shape == Shape::square) { return std::max(smallestIcon, std::min(width(), height())); }
  const double scale = std::max(1.0, panelScale_ / devicePixelRatio());
  return std::clamp(height(), smallestIcon, static_cast<int>(std::lround(largestIcon * scale)));
}

PanelShade DockedWindow::shade() const {
  if (!background_.isNull()) { return shadeOfBackground(average(background_)); }
  if (look_.foreground) { return shadeForText(*look_.foreground); }
  return content_.shade;
}

void DockedWindow::redraw() {
  drawn_ = draw(look_.shape, iconHeight());
  const int needed = drawn_.deviceIndependentSize().toSize().width();
  askForWidth(needed);
  const bool isSqueezed = look_.shape == Shape::wide && width() < needed;
  if (isSqueezed) { drawn_ = draw(Shape::square, std::min(iconHeight(), width())); }
  const bool showsWholeText = look_.shape == Shape::wide && !isSqueezed;
  setToolTip(
      QString::fromStdString(showsWholeText ? content_.toolTip : content_.toolTipWithText()));
  update();
}

QImage DockedWindow::draw(Shape shape, int height) const {
  if (!content_.image) { return {}; }
  const auto ratio = devicePixelRatio();
  const auto drawShape = shape == Shape::wide ? drawWide : drawFigureSquare;
  auto image = drawShape(*content_.image, static_cast<int>(std::lround(height * ratio)),
                         inkFor(*content_.image, shade()));
  image.setDevicePixelRatio(ratio);
  return image;
}

void DockedWindow::askForWidth(int imageWidth) {
  // Trays take the least size for the wanted one, and some of them only its proportions.
  const int margins = imageWidth > iconHeight() ? 2 * wideMargin : 0;
  const QSize needed(std::max(imageWidth + margins, smallestIcon), iconHeight());
  if (minimumSize() == needed) { return; }
  setMinimumSize(needed);
  resize(needed.width(), height());
}

/// The panel paints itself around a window that is new or has moved, in its own time.
void DockedWindow::readBackgroundSoon() {
  readBackground();
  readingBackground_.emplace(executor_, panelPaintingTime, [this] {
    fitPlace();
    readBackground();
  });
}

/// A panel that takes an icon in while the icon asks for its size may let it have that, in a place
/// that has less, or leave it small in one that has more, and does not tell when the place changes.
/// Only so often, in case that there is one that does not agree.
void DockedWindow::fitPlace() {
  if (look_.shape == Shape::square || fittings_ == 0) { return; }
  --fittings_;
  fitIntoParent(static_cast<xcb_window_t>(winId()));
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

void DockedWindow::enterEvent(QEnterEvent* /*event*/) { readBackground(); }

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
  lookObserver_ = manager_.observeLook([this] {
    if (window_) { window_->handlePanel(manager_.foreground()); }
  });
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
