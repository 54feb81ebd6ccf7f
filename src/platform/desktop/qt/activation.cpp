#include "platform/desktop/qt/activation.h"

#include <QWidget>
#include <charconv>
#include <string_view>

#include "platform/x11/x11_display.h"

namespace orvane {

namespace {

/// "A direct act of the user": window managers follow it where they would refuse a window that
/// raises itself.
constexpr std::uint32_t actOfTheUser = 2;

void activateOnX11(const X11Display& display, QWidget& window, const std::string& token) {
  const auto id = static_cast<xcb_window_t>(window.winId());
  display.sendToWindowManager(id, "_NET_ACTIVE_WINDOW", {actOfTheUser, startupTime(token)});
  if (!token.empty()) { display.endStartupSequence(id, token); }
  display.flush();
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
  const auto display = X11Display::ofApplication();
  // Where the compositor hands out permissions, Qt takes them from the environment.
  if (!display && !token.empty()) {
    qputenv("XDG_ACTIVATION_TOKEN", QByteArray::fromStdString(token));
  }
  window.raise();
  window.activateWindow();
  if (display) { activateOnX11(*display, window, token); }
}

}  // namespace orvane
