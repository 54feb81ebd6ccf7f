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

/// An image that runs from a line above it to one below, or from a column left of it to one right;
/// one of the two may be missing.
[[nodiscard]] QImage blendBetween(const QImage& near, const QImage& far, const QSize& size);

}  // namespace orvane
