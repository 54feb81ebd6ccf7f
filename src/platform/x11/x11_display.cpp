#include "platform/x11/x11_display.h"
#include <QGuiApplication>
#include <algorithm>
#include <cstring>

namespace orvane {
namespace {
constexpr std::uint32_t longestProperty = 64;
constexpr std::uint32_t longestText = 16'384;  ///< in units of four bytes
constexpr std::uint32_t allPlanes = ~0U;

/// Waits for the answer to one request.
template <auto request, auto reply, class... Arguments>
auto ask(xcb_connection_t* connection, Arguments... arguments) {
  auto* const answer = reply(connection, request(connection, arguments...), nullptr);
  return XReply<std::remove_pointer_t<decltype(answer)>>(answer);
}

xcb_client_message_event_t messageAbout(xcb_window_t window, xcb_atom_t type, std::uint8_t format) {
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

std::optional<X11Display> X11Display::ofApplication() {
  // Other platforms offer the interface without a server.
  if (QGuiApplication::platformName() != QStringLiteral("xcb")) { return std::nullopt; }
  const auto* const native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!native || !native->connection()) { return std::nullopt; }
  return X11Display(*native->connection());
}

const xcb_screen_t& X11Display::screen() const {
  return *xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
}

// An event tells the time, and those of the shared connection are Qt's to read.
std::uint32_t X11Display::currentTime() {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
      xcb_connect(nullptr, nullptr), xcb_disconnect);
  if (xcb_connection_has_error(connection.get()) != 0) { return 0; }
  const X11Display display(*connection);
  const xcb_window_t window = xcb_generate_id(connection.get());
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, display.root(), 0, 0, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
  display.setProperty(window, "WM_CLIENT_MACHINE", {});
  display.flush();
  const XReply<xcb_generic_event_t> event(xcb_wait_for_event(connection.get()));
  constexpr unsigned sentBySomebodyElse = 0x80;
  const bool tellsTime =
      event && (event->response_type & ~sentBySomebodyElse) == XCB_PROPERTY_NOTIFY;
  return tellsTime ? reinterpret_cast<const xcb_property_notify_event_t&>(*event).time : 0;
}

bool X11Display::hasWindowManager() const {
  return !property(root(), "_NET_SUPPORTING_WM_CHECK").empty();
}

xcb_atom_t X11Display::atom(const char* name) const {
  const auto length = static_cast<std::uint16_t>(std::strlen(name));
  const auto reply =
      ask<xcb_intern_atom, xcb_intern_atom_reply>(connection_, std::uint8_t{0}, length, name);
  return reply ? reply->atom : XCB_ATOM_NONE;
}

xcb_window_t X11Display::ownerOf(xcb_atom_t selection) const {
  const auto reply =
      ask<xcb_get_selection_owner, xcb_get_selection_owner_reply>(connection_, selection);
  return reply ? reply->owner : XCB_WINDOW_NONE;
}

xcb_window_t X11Display::parentOf(xcb_window_t window) const {
  const auto reply = ask<xcb_query_tree, xcb_query_tree_reply>(connection_, window);
  return reply ? reply->parent : XCB_WINDOW_NONE;
}

QRect X11Display::areaOf(xcb_window_t window) const {
  const auto size = ask<xcb_get_geometry, xcb_get_geometry_reply>(connection_, window);
  const auto place = ask<xcb_translate_coordinates, xcb_translate_coordinates_reply>(
      connection_, window, root(), std::int16_t{0}, std::int16_t{0});
  if (!size || !place) { return {}; }
  return {place->dst_x, place->dst_y, size->width, size->height};
}

int X11Display::depthOf(xcb_visualid_t visual) const {
  for (auto depth = xcb_screen_allowed_depths_iterator(&screen()); depth.rem != 0;
       xcb_depth_next(&depth)) {
    for (auto type = xcb_depth_visuals_iterator(depth.data); type.rem != 0;
         xcb_visualtype_next(&type)) {
      if (type.data->visual_id == visual) { return depth.data->depth; }
    }
  }
  return 0;
}

std::vector<std::uint32_t> X11Display::property(xcb_window_t window, const char* name) const {
  const auto reply = ask<xcb_get_property, xcb_get_property_reply>(
      connection_, std::uint8_t{0}, window, atom(name), xcb_atom_t{XCB_ATOM_ANY}, 0U,
      longestProperty);
  if (!reply || reply->format != 32) { return {}; }
  const auto* const first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

std::vector<std::uint8_t> X11Display::bytes(xcb_window_t window, const char* name) const {
  const auto reply = ask<xcb_get_property, xcb_get_property_reply>(
      connection_, std::uint8_t{0}, window, atom(name), xcb_atom_t{XCB_ATOM_ANY}, 0U, longestText);
  if (!reply || reply->format != 8) { return {}; }
  const auto* const first = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

QImage X11Display::picture(const QRect& area) const {
  const auto width = static_cast<std::uint16_t>(area.width());
  const auto height = static_cast<std::uint16_t>(area.height());
  const auto reply = ask<xcb_get_image, xcb_get_image_reply>(
      connection_, std::uint8_t{XCB_IMAGE_FORMAT_Z_PIXMAP}, root(),
      static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()), width, height,
      allPlanes);
  const auto needed = static_cast<std::uint32_t>(width) * height * 4;
  if (!reply || reply->length * 4 < needed) { return {}; }
  const auto lineSize = static_cast<qsizetype>(width) * 4;
  return QImage(xcb_get_image_data(reply.get()), width, height, lineSize, QImage::Format_RGB32)
      .copy();
}

void X11Display::setProperty(xcb_window_t window, const char* name,
                             const std::vector<std::uint32_t>& values) const {
  const auto type = atom(name);
  xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, type, type, 32,
                      static_cast<std::uint32_t>(values.size()), values.data());
}

void X11Display::resize(xcb_window_t window, const QSize& size) const {
  const std::uint32_t values[] = {static_cast<std::uint32_t>(size.width()),
                                  static_cast<std::uint32_t>(size.height())};
  xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                       values);
  flush();
}

void X11Display::addEvents(xcb_window_t window, std::uint32_t mask) const {
  const auto reply =
      ask<xcb_get_window_attributes, xcb_get_window_attributes_reply>(connection_, window);
  if (!reply) { return; }
  mask |= reply->your_event_mask;
  xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &mask);
}

void X11Display::send(xcb_window_t receiver, std::uint32_t mask, xcb_window_t window,
                      const char* name, const XMessageValues& values) const {
  auto message = messageAbout(window, atom(name), 32);
  std::ranges::copy(values, message.data.data32);
  sendEvent(receiver, mask, message);
}

void X11Display::sendToWindowManager(xcb_window_t window, const char* name,
                                     const XMessageValues& values) const {
  send(root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, window,
       name, values);
}

void X11Display::endStartupSequence(xcb_window_t window, const std::string& startupId) const {
  const auto text = "remove: ID=" + quoted(startupId);
  auto type = atom("_NET_STARTUP_INFO_BEGIN");
  // In pieces of one message each, the last of which ends with a zero byte.
  for (std::size_t sent = 0; sent <= text.size(); sent += sizeof(xcb_client_message_data_t)) {
    auto message = messageAbout(window, type, 8);
    const auto length = std::min(sizeof(xcb_client_message_data_t), text.size() - sent);
    std::memcpy(message.data.data8, text.data() + sent, length);
    sendEvent(root(), XCB_EVENT_MASK_PROPERTY_CHANGE, message);
    type = atom("_NET_STARTUP_INFO");
  }
}

void X11Display::sendEvent(xcb_window_t receiver, std::uint32_t mask,
                           const xcb_client_message_event_t& message) const {
  xcb_send_event(connection_, 0, receiver, mask, reinterpret_cast<const char*>(&message));
}
}  // namespace orvane
