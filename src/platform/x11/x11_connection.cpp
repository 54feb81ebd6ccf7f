#include "platform/x11/x11_connection.h"

#include <QGuiApplication>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

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

namespace {

struct Freed {
  void operator()(void* memory) const { std::free(memory); }
};

xcb_atom_t atom(xcb_connection_t& connection, std::string_view name) {
  const auto cookie =
      xcb_intern_atom(&connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, Freed> reply(
      xcb_intern_atom_reply(&connection, cookie, nullptr));
  return reply ? reply->atom : XCB_ATOM_NONE;
}

xcb_window_t rootWindow(xcb_connection_t& connection) {
  return xcb_setup_roots_iterator(xcb_get_setup(&connection)).data->root;
}

void send(xcb_connection_t& connection, const xcb_client_message_event_t& message,
          std::uint32_t mask) {
  xcb_send_event(&connection, 0, rootWindow(connection), mask,
                 reinterpret_cast<const char*>(&message));
}

xcb_client_message_event_t clientMessage(xcb_window_t window, xcb_atom_t type,
                                         std::uint8_t format) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = format;
  message.window = window;
  message.type = type;
  return message;
}

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') { result += '\\'; }
    result += character;
  }
  return result + '"';
}

}  // namespace

void sendToRoot(xcb_connection_t& connection, xcb_window_t window, std::string_view name,
                const std::array<std::uint32_t, 5>& values) {
  auto message = clientMessage(window, atom(connection, name), 32);
  std::ranges::copy(values, message.data.data32);
  send(connection, message,
       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

void endStartupSequence(xcb_connection_t& connection, xcb_window_t window,
                        const std::string& startupId) {
  const auto text = "remove: ID=" + quoted(startupId);
  auto type = atom(connection, "_NET_STARTUP_INFO_BEGIN");
  // In pieces of one message each, the last of which ends with a zero byte.
  for (std::size_t sent = 0; sent <= text.size(); sent += sizeof(xcb_client_message_data_t)) {
    auto message = clientMessage(window, type, 8);
    const auto length = std::min(sizeof(xcb_client_message_data_t), text.size() - sent);
    std::memcpy(message.data.data8, text.data() + sent, length);
    send(connection, message, XCB_EVENT_MASK_PROPERTY_CHANGE);
    type = atom(connection, "_NET_STARTUP_INFO");
  }
}

}  // namespace orvane
