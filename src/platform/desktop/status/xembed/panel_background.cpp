#include "platform/desktop/status/xembed/panel_background.h"

#include <QPainter>
#include <QRect>

#include "platform/desktop/status/xembed/x_properties.h"

namespace orvane {
namespace {

constexpr std::uint32_t allPlanes = ~0U;

QImage readScreen(xcb_connection_t* connection, const QRect& area) {
  const auto width = static_cast<std::uint16_t>(area.width());
  const auto height = static_cast<std::uint16_t>(area.height());
  const auto request = xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, rootWindow(connection),
                                     static_cast<std::int16_t>(area.x()),
                                     static_cast<std::int16_t>(area.y()), width, height, allPlanes);
  const XReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(connection, request, nullptr));
  const auto needed = static_cast<std::uint32_t>(width) * height * 4;
  if (!reply || reply->length * 4 < needed) { return {}; }
  const auto lineSize = static_cast<qsizetype>(width) * 4;
  return QImage(xcb_get_image_data(reply.get()), width, height, lineSize, QImage::Format_RGB32)
      .copy();
}

/// The panel around a window: its outermost parent below the root.
xcb_window_t outermostParent(xcb_connection_t* connection, xcb_window_t window) {
  const auto root = rootWindow(connection);
  for (auto parent = parentWindow(connection, window); parent != root;
       parent = parentWindow(connection, window)) {
    if (parent == XCB_WINDOW_NONE) { return XCB_WINDOW_NONE; }
    window = parent;
  }
  return window;
}

}  // namespace

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

QImage panelBackground(xcb_window_t window) {
  auto* const connection = applicationConnection();
  if (!connection) { return {}; }
  const auto panel = outermostParent(connection, window);
  if (panel == XCB_WINDOW_NONE || panel == window) { return {}; }
  const auto panelArea = areaOnScreen(connection, panel);
  const auto area = areaOnScreen(connection, window);
  const auto read = [&](const QRect& edge) {
    return panelArea.contains(edge) ? readScreen(connection, edge) : QImage();
  };
  const auto above = read(QRect(area.x(), area.y() - 1, area.width(), 1));
  const auto below = read(QRect(area.x(), area.bottom() + 1, area.width(), 1));
  if (!above.isNull() || !below.isNull()) { return blendBetween(above, below, area.size()); }
  const auto left = read(QRect(area.x() - 1, area.y(), 1, area.height()));
  const auto right = read(QRect(area.right() + 1, area.y(), 1, area.height()));
  return blendBetween(left, right, area.size());
}

}  // namespace orvane
