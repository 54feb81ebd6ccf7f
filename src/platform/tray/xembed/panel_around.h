#pragma once

#include <QImage>
#include <xcb/xcb.h>

namespace orvane {
/// What a window in a panel would show if panels let anything shine through: trays with and
/// without a compositing manager paint black behind a transparent window as a rule. It is put
/// together from the panel's pixels right above and below the window, or left and right of one
/// that fills the panel's height. Null when there is nothing to read, for example before the
/// window is on the screen. In device pixels.
[[nodiscard]] QImage panelBackground(xcb_window_t window);

/// Makes a window as large as the one that it stands in, unless that is the screen.
void fitIntoParent(xcb_window_t window);

/// How many pixels of the screen the desktop has its panels draw for one; 1 where it does not tell.
[[nodiscard]] int panelScale();
}  // namespace orvane
