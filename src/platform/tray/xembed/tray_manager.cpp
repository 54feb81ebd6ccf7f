#include "platform/tray/xembed/tray_manager.h"
#include <QGuiApplication>
#include <utility>

namespace orvane {
namespace {
constexpr std::uint32_t requestDockOpcode = 0;
constexpr int alphaDepth = 32;
constexpr auto orientationName = "_NET_SYSTEM_TRAY_ORIENTATION";
constexpr auto colorsName = "_NET_SYSTEM_TRAY_COLORS";
}  // namespace

TrayManager::TrayManager() : display_(X11Display::ofApplication()) {
  if (!display_) { return; }
  selection_ = display_->atom("_NET_SYSTEM_TRAY_S0");
  managerMessage_ = display_->atom("MANAGER");
  orientation_ = display_->atom(orientationName);
  colors_ = display_->atom(colorsName);
  settings_ = display_->atom("_XSETTINGS_S0");
  qGuiApp->installNativeEventFilter(this);
  // New trays announce themselves to the root window.
  display_->addEvents(display_->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  findOwner();
  findSettings();
}

TrayManager::~TrayManager() {
  if (qGuiApp) { qGuiApp->removeNativeEventFilter(this); }
}

Registration TrayManager::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

Registration TrayManager::observeLook(std::function<void()> listener) {
  return lookChanged_.subscribe(std::move(listener));
}

Registration TrayManager::observeTaken(std::function<void(xcb_window_t)> listener) {
  return taken_.subscribe(std::move(listener));
}

void TrayManager::findOwner() {
  const auto owner = display_->ownerOf(selection_);
  if (owner != XCB_WINDOW_NONE) {
    display_->addEvents(owner, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
    display_->flush();
  }
  if (std::exchange(window_, owner) != owner) { changed_.send(); }
}

/// Themes and scales of GTK's panels arrive as settings.
void TrayManager::findSettings() {
  settingsWindow_ = display_->ownerOf(settings_);
  if (settingsWindow_ == XCB_WINDOW_NONE) { return; }
  display_->addEvents(settingsWindow_, XCB_EVENT_MASK_PROPERTY_CHANGE);
  display_->flush();
}

bool TrayManager::nativeEventFilter(const QByteArray& eventType, void* message,
                                    qintptr* /*result*/) {
  if (eventType != "xcb_generic_event_t") { return false; }
  const auto* const event = static_cast<const xcb_generic_event_t*>(message);
  const int type = event->response_type & ~0x80;
  if (type == XCB_CLIENT_MESSAGE) {
    const auto& announced = *reinterpret_cast<const xcb_client_message_event_t*>(event);
    if (announced.type != managerMessage_) { return false; }
    if (announced.data.data32[1] == selection_) { findOwner(); }
    if (announced.data.data32[1] == settings_) {
      findSettings();
      lookChanged_.send();
    }
  } else if (type == XCB_DESTROY_NOTIFY && window_ != XCB_WINDOW_NONE) {
    const auto& destroyed = *reinterpret_cast<const xcb_destroy_notify_event_t*>(event);
    if (destroyed.window == window_) { findOwner(); }
  } else if (type == XCB_PROPERTY_NOTIFY) {
    const auto& told = *reinterpret_cast<const xcb_property_notify_event_t*>(event);
    const bool isLook = told.atom == orientation_ || told.atom == colors_;
    const bool isOfTray = told.window == window_ && isLook;
    if (isOfTray || told.window == settingsWindow_) { lookChanged_.send(); }
  } else if (type == XCB_REPARENT_NOTIFY) {
    const auto& moved = *reinterpret_cast<const xcb_reparent_notify_event_t*>(event);
    if (moved.parent != display_->root()) { taken_.send(moved.window); }
  }
  return false;
}

bool TrayManager::wantsAlpha() const {
  if (window_ == XCB_WINDOW_NONE) { return false; }
  const auto visual = display_->property(window_, "_NET_SYSTEM_TRAY_VISUAL");
  return !visual.empty() && display_->depthOf(visual.front()) == alphaDepth;
}

bool TrayManager::isVertical() const {
  if (window_ == XCB_WINDOW_NONE) { return false; }
  const auto orientation = display_->property(window_, orientationName);
  return !orientation.empty() && orientation.front() == 1;
}

std::optional<QColor> TrayManager::foreground() const {
  if (window_ == XCB_WINDOW_NONE) { return std::nullopt; }
  const auto channels = display_->property(window_, colorsName);
  if (channels.size() < 3) { return std::nullopt; }
  const auto eightBits = [&](std::size_t at) { return static_cast<int>(channels[at] >> 8 & 0xff); };
  return QColor(eightBits(0), eightBits(1), eightBits(2));
}

void TrayManager::requestDock(xcb_window_t icon) const {
  if (window_ == XCB_WINDOW_NONE) { return; }
  constexpr std::uint32_t version = 0;
  constexpr std::uint32_t mapped = 1;
  display_->setProperty(icon, "_XEMBED_INFO", {version, mapped});
  display_->send(window_, XCB_EVENT_MASK_NO_EVENT, window_, "_NET_SYSTEM_TRAY_OPCODE",
                 {XCB_CURRENT_TIME, requestDockOpcode, icon});
  display_->flush();
}

bool TrayManager::hasTaken(xcb_window_t icon) const {
  const auto parent = display_->parentOf(icon);
  return parent != XCB_WINDOW_NONE && parent != display_->root();
}
}  // namespace orvane
