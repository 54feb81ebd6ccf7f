#include "platform/desktop/status/xembed/panel_background.h"

#include "platform/desktop/status/xembed/x_properties.h"

namespace orvane {
namespace {

constexpr std::uint32_t allPlanes = ~0U;

}  // namespace

QImage panelBackground(xcb_window_t window, const QSize& size) {
  auto* const connection = applicationConnection();
  if (!connection || size.isEmpty()) return {};
  const std::uint32_t parentRelative = XCB_BACK_PIXMAP_PARENT_RELATIVE;
  xcb_change_window_attributes(connection, window, XCB_CW_BACK_PIXMAP, &parentRelative);
  const auto width = static_cast<std::uint16_t>(size.width());
  const auto height = static_cast<std::uint16_t>(size.height());
  xcb_clear_area(connection, 0, window, 0, 0, width, height);
  const auto request =
      xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, width, height, allPlanes);
  const XReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(connection, request, nullptr));
  const auto needed = static_cast<std::uint32_t>(width) * height * 4;
  if (!reply || reply->length * 4 < needed) return {};
  return QImage(xcb_get_image_data(reply.get()), width, height, width * 4, QImage::Format_RGB32)
      .copy();
}

}  // namespace orvane
