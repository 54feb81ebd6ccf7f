#include "platform/desktop/qt/x11_messages.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace orvane {
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
