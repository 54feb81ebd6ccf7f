#include "platform/desktop/qt/activation.h"

#include <QGuiApplication>
#include <QWidget>
#include <charconv>
#include <string_view>

#include <xcb/xcb.h>

#include "platform/x11/x11_connection.h"

namespace orvane {

namespace {

/// "A direct act of the user": window managers follow it where they would refuse a window that
/// raises itself.
constexpr std::uint32_t actOfTheUser = 2;

void activateOnX11(xcb_connection_t& connection, QWidget& window, const std::string& token) {
  const auto id = static_cast<xcb_window_t>(window.winId());
  const auto time = startupTime(token);
  sendToRoot(connection, id, "_NET_ACTIVE_WINDOW", {actOfTheUser, time, 0, 0, 0});
  if (!token.empty()) { endStartupSequence(connection, id, token); }
  xcb_flush(&connection);
}

/// Null where the display is no X server; other platforms offer the interface without a server.
xcb_connection_t* x11Connection() {
  if (QGuiApplication::platformName() != QStringLiteral("xcb")) { return nullptr; }
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

}  // namespace

unsigned startupTime(const std::string& token) {
  constexpr std::string_view mark = "_TIME";
  const auto found = token.rfind(mark);
  unsigned time = 0;
  if (found == std::string::npos) { return time; }
  std::from_chars(token.data() + found + mark.size(), token.data() + token.size(), time);
  return time;
}

void activateWindow(QWidget& window, const std::string& token) {
  auto* const x11 = x11Connection();
  // Where the compositor hands out permissions, Qt takes them from the environment.
  if (!x11 && !token.empty()) { qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token)); }
  window.raise();
  window.activateWindow();
  if (x11) { activateOnX11(*x11, window, token); }
}

}  // namespace orvane
