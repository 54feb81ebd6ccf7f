#include "platform/tray/xembed/tray_manager.h"

#include <QGuiApplication>
#include <utility>

#include "platform/x11/x11_connection.h"

namespace orvane {

namespace {

constexpr std::uint32_t requestDockOpcode = 0;
constexpr int alphaDepth = 32;

}  // namespace

TrayManager::TrayManager() : connection_(applicationConnection()) {
  if (!connection_) { return; }
  selection_ = internAtom(connection_, "_NET_SYSTEM_TRAY_S0");
  managerMessage_ = internAtom(connection_, "MANAGER");
  qGuiApp->installNativeEventFilter(this);
  // New trays announce themselves to the root window.
  addEventMask(connection_, rootWindow(connection_), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  findOwner();
}

TrayManager::~TrayManager() {
  if (qGuiApp) { qGuiApp->removeNativeEventFilter(this); }
}

Registration TrayManager::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

Registration TrayManager::observeTaken(std::function<void(xcb_window_t)> listener) {
  return taken_.subscribe(std::move(listener));
}

void TrayManager::findOwner() {
  const auto request = xcb_get_selection_owner(connection_, selection_);
  const XReply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection_, request, nullptr));
  const auto owner = reply ? reply->owner : XCB_WINDOW_NONE;
  if (owner != XCB_WINDOW_NONE) {
    addEventMask(connection_, owner, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    xcb_flush(connection_);
  }
  if (std::exchange(window_, owner) != owner) { changed_.send(); }
}

bool TrayManager::nativeEventFilter(const QByteArray& eventType, void* message,
                                    qintptr* /*result*/) {
  if (eventType != "xcb_generic_event_t") { return false; }
  const auto* const event = static_cast<const xcb_generic_event_t*>(message);
  const int type = event->response_type & ~0x80;
  if (type == XCB_CLIENT_MESSAGE) {
    const auto& announced = *reinterpret_cast<const xcb_client_message_event_t*>(event);
    if (announced.type == managerMessage_ && announced.data.data32[1] == selection_) {
      findOwner();
    }
  } else if (type == XCB_DESTROY_NOTIFY && window_ != XCB_WINDOW_NONE) {
    const auto& destroyed = *reinterpret_cast<const xcb_destroy_notify_event_t*>(event);
    if (destroyed.window == window_) { findOwner(); }
  } else if (type == XCB_REPARENT_NOTIFY) {
    const auto& moved = *reinterpret_cast<const xcb_reparent_notify_event_t*>(event);
    if (moved.parent != rootWindow(connection_)) { taken_.send(moved.window); }
  }
  return false;
}

bool TrayManager::wantsAlpha() const {
  if (window_ == XCB_WINDOW_NONE) { return false; }
  const auto visual =
      propertyValues(connection_, window_, internAtom(connection_, "_NET_SYSTEM_TRAY_VISUAL"));
  return !visual.empty() && visualDepth(connection_, visual.front()) == alphaDepth;
}

std::optional<QColor> TrayManager::foreground() const {
  if (window_ == XCB_WINDOW_NONE) { return std::nullopt; }
  const auto channels =
      propertyValues(connection_, window_, internAtom(connection_, "_NET_SYSTEM_TRAY_COLORS"));
  if (channels.size() < 3) { return std::nullopt; }
  const auto eightBits = [&](std::size_t at) { return static_cast<int>(channels[at] >> 8 & 0xff); };
  return QColor(eightBits(0), eightBits(1), eightBits(2));
}

void TrayManager::requestDock(xcb_window_t icon) const {
  if (window_ == XCB_WINDOW_NONE) { return; }
  const auto xembedInfo = internAtom(connection_, "_XEMBED_INFO");
  constexpr std::uint32_t mapped = 1;
  const std::uint32_t versionAndFlags[] = {0, mapped};
  xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, icon, xembedInfo, xembedInfo, 32, 2,
                      versionAndFlags);
  xcb_client_message_event_t request{};
  request.response_type = XCB_CLIENT_MESSAGE;
  request.format = 32;
  request.window = window_;
  request.type = internAtom(connection_, "_NET_SYSTEM_TRAY_OPCODE");
  request.data.data32[0] = XCB_CURRENT_TIME;
  request.data.data32[1] = requestDockOpcode;
  request.data.data32[2] = icon;
  xcb_send_event(connection_, 0, window_, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&request));
  xcb_flush(connection_);
}

bool TrayManager::hasTaken(xcb_window_t icon) const {
  const auto parent = parentWindow(connection_, icon);
  return parent != XCB_WINDOW_NONE && parent != rootWindow(connection_);
}

}  // namespace orvane
