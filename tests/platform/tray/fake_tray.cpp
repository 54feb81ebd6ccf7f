#include "fake_tray.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QScreen>

#include <gtest/gtest.h>

namespace orvane::test {
namespace {

constexpr int panelWidth = 400;
constexpr int panelHeight = 30;
constexpr int margin = 4;

}  // namespace

FakeTray::FakeTray(std::uint32_t panelColor, bool takesWindows)
    : connection_(xcb_connect(nullptr, nullptr)),
      display_(*connection_),
      takesWindows_(takesWindows),
      panel_(xcb_generate_id(connection_)) {
  const std::uint32_t values[] = {panelColor, 1};
  xcb_create_window(connection_, XCB_COPY_FROM_PARENT, panel_, display_.root(), 0, 0, panelWidth,
                    panelHeight, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                    XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
  xcb_map_window(connection_, panel_);
  xcb_set_selection_owner(connection_, panel_, display_.atom("_NET_SYSTEM_TRAY_S0"),
                          XCB_CURRENT_TIME);
  announce();
}

FakeTray::~FakeTray() { xcb_disconnect(connection_); }

void FakeTray::announce() const {
  display_.send(display_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY, display_.root(), "MANAGER",
                {XCB_CURRENT_TIME, display_.atom("_NET_SYSTEM_TRAY_S0"), panel_});
  display_.flush();
}

void FakeTray::handleEvents() {
  while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
    if ((event->response_type & ~0x80) != XCB_CLIENT_MESSAGE || !takesWindows_) { continue; }
    const auto& message = *reinterpret_cast<const xcb_client_message_event_t*>(event.get());
    if (message.type == display_.atom("_NET_SYSTEM_TRAY_OPCODE")) {
      takeIn(message.data.data32[2]);
    }
  }
}

void FakeTray::takeIn(xcb_window_t icon) {
  icon_ = icon;
  xcb_reparent_window(connection_, icon, panel_, margin, margin);
  const std::uint32_t height = slotHeight;
  xcb_configure_window(connection_, icon, XCB_CONFIG_WINDOW_HEIGHT, &height);
  xcb_map_window(connection_, icon);
  xcb_flush(connection_);
}

QImage FakeTray::picture() const {
  if (icon_ == XCB_WINDOW_NONE) { return {}; }
  return QGuiApplication::primaryScreen()->grabWindow(icon_).toImage();
}

void FakeTray::click(int button) {
  const auto place = QString::number(2 * margin);
  EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"),
                              {QStringLiteral("mousemove"), place, place, QStringLiteral("click"),
                               QString::number(button)}),
            0);
}

}  // namespace orvane::test
