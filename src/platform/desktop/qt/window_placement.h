#pragma once

#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QWidget>
#include <optional>

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

/// It is maximised or covers the screen.
[[nodiscard]] bool fillsScreen(const QWidget& window);

/// Programs may say where their windows stand; Wayland's compositors do not tell them.
[[nodiscard]] bool canPlaceWindows();

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

/// What the user has decided of a window's size and place; the rest is left to the program and the
/// window manager.
struct ChosenPlacement {
  std::optional<int> width;
  std::optional<int> height;
  /// Not a corner: a window that the program makes larger grows about its centre.
  std::optional<QPoint> centre;
  bool operator==(const ChosenPlacement&) const = default;
};
/// The middle of a place, which `placeAbout` turns back into the place to the pixel.
[[nodiscard]] QPoint centreOf(const QRect& place);
/// `size` as far as the user has decided nothing else, and at least `least`.
[[nodiscard]] QSize chosenSize(const ChosenPlacement& chosen, const QSize& size,
                               const QSize& least);
/// The place about the chosen centre, on the screen that has this centre or else on `window`'s.
/// The window has no frame yet, and none is counted.
[[nodiscard]] QRect placeAbout(const QPoint& centre, const QSize& size, const QWidget& window);
}  // namespace orvane
