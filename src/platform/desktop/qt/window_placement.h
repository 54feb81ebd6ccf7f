#pragma once

#include <QMargins>
#include <QRect>
#include <QSize>
#include <QWidget>

namespace orvane {
/// Where windows stand on the screen. A place is the inside of a window, as Qt's `geometry`; the
/// frame around it counts as part of the window wherever it must be on screen.

/// What a window has to get along with.
struct WindowRoom {
  QRect workArea;  ///< of its screen: what panels leave
  QMargins frame;  ///< what the window manager puts around it
};
/// While the window manager has not framed the window yet, the frame is a generous guess.
[[nodiscard]] WindowRoom roomOf(const QWidget& window);

/// The window is on screen, or where its window manager wants it.
[[nodiscard]] bool isPlaced(const QWidget& window);

/// What a window may insist on at most: the same before and after it got a usual frame.
[[nodiscard]] QSize largestSize(const WindowRoom& room);

/// `wanted`, moved into the work area with its frame, and made smaller where it must be.
[[nodiscard]] QRect placeWithin(const WindowRoom& room, const QRect& wanted);

/// The place of a window that grows to `size` about its centre, as far as the work area lets it.
[[nodiscard]] QRect grownAboutCentre(const WindowRoom& room, const QRect& place, const QSize& size);

/// Where a window was, and in what work area.
struct RememberedPlace {
  QRect place;
  QRect workArea;
};
/// Exactly there, which may be partly off screen as the user left it; within the work area once
/// that has become another one.
[[nodiscard]] QRect placeToReturnTo(const WindowRoom& room, const RememberedPlace& remembered);
}  // namespace orvane
