#include "platform/tray/xembed/panel_around.h"
#include <QPainter>
#include <QRect>
#include <algorithm>
#include "platform/x11/x11_display.h"
#include "platform/x11/x_settings.h"

namespace orvane {
namespace {
constexpr int largestScale = 4;

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
}  // namespace

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

void fitIntoParent(xcb_window_t window) {
  const auto display = X11Display::ofApplication();
  const auto parent = display ? display->parentOf(window) : XCB_WINDOW_NONE;
  if (parent == XCB_WINDOW_NONE || parent == display->root()) { return; }
  const auto size = display->areaOf(parent).size();
  if (!size.isEmpty() && size != display->areaOf(window).size()) { display->resize(window, size); }
}

int panelScale() {
  const auto display = X11Display::ofApplication();
  const auto told = display ? integerXSetting(*display, "Gdk/WindowScalingFactor") : std::nullopt;
  return std::clamp(told.value_or(1), 1, largestScale);
}
}  // namespace orvane
