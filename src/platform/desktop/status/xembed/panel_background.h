#pragma once

#include <QImage>
#include <QSize>

#include <xcb/xcb.h>

namespace orvane {

/// What lies behind a docked window that cannot be transparent: the parent's picture, read from
/// the X server. Null when it cannot be read, for example while the window is not on screen.
/// `size` is in device pixels.
[[nodiscard]] QImage panelBackground(xcb_window_t window, const QSize& size);

}  // namespace orvane
