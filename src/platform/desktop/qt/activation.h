#pragma once

#include <string>

class QWidget;

namespace orvane {

/// Brings a window of ours to the front and gives it the keyboard. `token` is what the program
/// that the user acted in handed on for this purpose; empty: none.
void activateWindow(QWidget& window, const std::string& token);

/// The X11 time in a startup id ("host-12-name_TIME4711"); 0 when it has none.
[[nodiscard]] unsigned startupTime(const std::string& token);

}  // namespace orvane
