#include "platform/desktop/status/xembed/x_properties.h"

#include <QGuiApplication>
#include <cstdlib>
#include <cstring>

namespace orvane {
namespace {

constexpr std::uint32_t longestProperty = 64;

}  // namespace

void FreeReply::operator()(void* reply) const { std::free(reply); }

xcb_atom_t internAtom(xcb_connection_t* connection, const char* name) {
  const auto request =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
  const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, request, nullptr));
  return reply ? reply->atom : XCB_ATOM_NONE;
}

std::vector<std::uint32_t> propertyValues(xcb_connection_t* connection, xcb_window_t window,
                                          xcb_atom_t property) {
  const auto request =
      xcb_get_property(connection, 0, window, property, XCB_ATOM_ANY, 0, longestProperty);
  const XReply<xcb_get_property_reply_t> reply(
      xcb_get_property_reply(connection, request, nullptr));
  if (!reply || reply->format != 32) { return {}; }
  const auto* const first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

xcb_window_t rootWindow(xcb_connection_t* connection) {
  return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

int visualDepth(xcb_connection_t* connection, xcb_visualid_t visual) {
  const auto* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
  for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem != 0;
       xcb_depth_next(&depth)) {
    for (auto type = xcb_depth_visuals_iterator(depth.data); type.rem != 0;
         xcb_visualtype_next(&type)) {
      if (type.data->visual_id == visual) { return depth.data->depth; }
    }
  }
  return 0;
}

xcb_window_t parentWindow(xcb_connection_t* connection, xcb_window_t window) {
  const auto request = xcb_query_tree(connection, window);
  const XReply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(connection, request, nullptr));
  return reply ? reply->parent : XCB_WINDOW_NONE;
}

QRect areaOnScreen(xcb_connection_t* connection, xcb_window_t window) {
  const auto sizeRequest = xcb_get_geometry(connection, window);
  const auto placeRequest =
      xcb_translate_coordinates(connection, window, rootWindow(connection), 0, 0);
  const XReply<xcb_get_geometry_reply_t> size(
      xcb_get_geometry_reply(connection, sizeRequest, nullptr));
  const XReply<xcb_translate_coordinates_reply_t> place(
      xcb_translate_coordinates_reply(connection, placeRequest, nullptr));
  if (!size || !place) { return {}; }
  return {place->dst_x, place->dst_y, size->width, size->height};
}

void addEventMask(xcb_connection_t* connection, xcb_window_t window, std::uint32_t mask) {
  const auto request = xcb_get_window_attributes(connection, window);
  const XReply<xcb_get_window_attributes_reply_t> reply(
      xcb_get_window_attributes_reply(connection, request, nullptr));
  if (!reply) { return; }
  mask |= reply->your_event_mask;
  xcb_change_window_attributes(connection, window, XCB_CW_EVENT_MASK, &mask);
}

xcb_connection_t* applicationConnection() {
  auto* const native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return native ? native->connection() : nullptr;
}

}  // namespace orvane
