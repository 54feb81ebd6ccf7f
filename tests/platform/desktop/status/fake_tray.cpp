#include "fake_tray.h"

#include <algorithm>
#include <vector>

#include "platform/desktop/status/xembed/x_properties.h"

namespace orvane::test {
namespace {

constexpr int panelWidth = 400;
constexpr int panelHeight = 30;
constexpr std::uint32_t colorPlanes = 0xffffff;

std::vector<std::uint32_t> pixels(xcb_connection_t* connection, xcb_window_t window, int width,
                                  int height) {
  const auto request =
      xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                    static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height), ~0U);
  const XReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(connection, request, nullptr));
  if (!reply) return {};
  const auto* const first = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(reply.get()));
  std::vector<std::uint32_t> values(first, first + static_cast<std::ptrdiff_t>(width) * height);
  std::ranges::for_each(values, [](std::uint32_t& value) { value &= colorPlanes; });
  return values;
}

}  // namespace

FakeTray::FakeTray(std::uint32_t panelColor, bool takesWindows)
    : connection_(xcb_connect(nullptr, nullptr)),
      screen_(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data),
      takesWindows_(takesWindows),
      panel_(xcb_generate_id(connection_)) {
  const std::uint32_t values[] = {panelColor, 1};
  xcb_create_window(connection_, XCB_COPY_FROM_PARENT, panel_, screen_->root, 0, 0, panelWidth,
                    panelHeight, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                    XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
  xcb_map_window(connection_, panel_);
  xcb_set_selection_owner(connection_, panel_, atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
  announce();
}

FakeTray::~FakeTray() { xcb_disconnect(connection_); }

xcb_atom_t FakeTray::atom(const char* name) const { return internAtom(connection_, name); }

void FakeTray::announce() const {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = screen_->root;
  message.type = atom("MANAGER");
  message.data.data32[1] = atom("_NET_SYSTEM_TRAY_S0");
  message.data.data32[2] = panel_;
  xcb_send_event(connection_, 0, screen_->root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(connection_);
}

void FakeTray::handleEvents() {
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
    if ((event->response_type & ~0x80) != XCB_CLIENT_MESSAGE || !takesWindows_) continue;
    const auto& message = *reinterpret_cast<const xcb_client_message_event_t*>(event.get());
    if (message.type == atom("_NET_SYSTEM_TRAY_OPCODE")) takeIn(message.data.data32[2]);
  }
}

void FakeTray::takeIn(xcb_window_t icon) {
  icon_ = icon;
  xcb_reparent_window(connection_, icon, panel_, 4, 4);
  const std::uint32_t height = slotHeight;
  xcb_configure_window(connection_, icon, XCB_CONFIG_WINDOW_HEIGHT, &height);
  xcb_map_window(connection_, icon);
  xcb_flush(connection_);
}

int FakeTray::iconWidth() const { return areaOnScreen(connection_, icon_).width(); }

std::uint32_t FakeTray::cornerPixel() const {
  const auto all = pixels(connection_, icon_, iconWidth(), slotHeight);
  return all.empty() ? 0 : all.front();
}

int FakeTray::drawnPercent() const {
  const auto all = pixels(connection_, icon_, iconWidth(), slotHeight);
  if (all.empty()) return 0;
  const auto drawn =
      std::ranges::count_if(all, [&](std::uint32_t value) { return value != all.front(); });
  return static_cast<int>(100 * static_cast<std::size_t>(drawn) / all.size());
}

void FakeTray::click(int button) const {
  xcb_button_press_event_t event{};
  event.detail = static_cast<xcb_button_t>(button);
  event.root = screen_->root;
  event.event = icon_;
  event.root_x = event.root_y = 10;
  event.event_x = event.event_y = 6;
  event.same_screen = 1;
  event.response_type = XCB_BUTTON_PRESS;
  xcb_send_event(connection_, 0, icon_, XCB_EVENT_MASK_BUTTON_PRESS,
                 reinterpret_cast<const char*>(&event));
  event.response_type = XCB_BUTTON_RELEASE;
  event.state = static_cast<std::uint16_t>(XCB_KEY_BUT_MASK_BUTTON_1 << (button - 1));
  xcb_send_event(connection_, 0, icon_, XCB_EVENT_MASK_BUTTON_RELEASE,
                 reinterpret_cast<const char*>(&event));
  xcb_flush(connection_);
}

}  // namespace orvane::test
