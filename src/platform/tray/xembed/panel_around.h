#pragma once

#include <QImage>
#include <QSize>
#include <xcb/xcb.h>

namespace orvane {
/// What a window in a panel would show if panels let anything shine through: trays with and
/// without a compositing manager paint black behind a transparent window as a rule. It is put
/// together from the panel's pixels right above and below the window, or left and right of one
/// that fills the panel's height. Null when there is nothing to read, for example before the
/// window is on the screen. In device pixels.
[[nodiscard]] QImage panelBackground(xcb_window_t window);

/// What can be seen of a window, from its top left corner, in device pixels; empty when that is
/// nothing. A tray may let an icon have the size that it asked for, in a place that has less.
[[nodiscard]] QSize visibleSize(xcb_window_t window);

/// Makes a window as small as what can be seen of it.
void shrinkToVisible(xcb_window_t window);

/// How many pixels of the screen the desktop has its panels draw for one; 1 where it does not tell.
[[nodiscard]] int panelScale();
}  // namespace orvane
