#include "platform/desktop/qt/window_placement.h"
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace orvane {
namespace {
/// At least what the themes of the common window managers take.
constexpr QMargins usualFrame(5, 40, 5, 8);

int clampedStart(int start, int length, int first, int room) {
  return std::clamp(start, first, first + std::max(0, room - length));
}
}  // namespace

WindowRoom roomOf(const QWidget& window) {
  return {.workArea = window.screen()->availableGeometry(),
          .frame = isPlaced(window) ? window.windowHandle()->frameMargins() : usualFrame};
}

bool isPlaced(const QWidget& window) {
  return window.windowHandle() && window.windowHandle()->isExposed();
}

bool fillsScreen(const QWidget& window) { return window.isMaximized() || window.isFullScreen(); }

bool canPlaceWindows() { return !QGuiApplication::platformName().startsWith(u"wayland"); }

QSize largestSize(const WindowRoom& room) {
  const QMargins frame = room.frame | usualFrame;
  return room.workArea.marginsRemoved(frame).size();
}

QRect placeWithin(const WindowRoom& room, const QRect& wanted) {
  const QRect inside = room.workArea.marginsRemoved(room.frame);
  const QSize size = wanted.size().boundedTo(inside.size());
  return {QPoint(clampedStart(wanted.left(), size.width(), inside.left(), inside.width()),
                 clampedStart(wanted.top(), size.height(), inside.top(), inside.height())),
          size};
}

QRect grownAboutCentre(const WindowRoom& room, const QRect& place, const QSize& size) {
  const QSize growth = size - place.size();
  const QPoint corner = place.topLeft() - QPoint(growth.width() / 2, growth.height() / 2);
  return placeWithin(room, QRect(corner, size));
}

QRect placeToReturnTo(const WindowRoom& room, const RememberedPlace& remembered) {
  return remembered.workArea == room.workArea ? remembered.place
                                              : placeWithin(room, remembered.place);
}

QPoint centreOf(const QRect& place) {
  return place.topLeft() + QPoint(place.width() / 2, place.height() / 2);
}

QSize chosenSize(const ChosenPlacement& chosen, const QSize& size, const QSize& least) {
  const QSize wanted(chosen.width.value_or(size.width()), chosen.height.value_or(size.height()));
  return wanted.expandedTo(least);
}

QRect placeAbout(const QPoint& centre, const QSize& size, const QWidget& window) {
  const QScreen* const screen = QGuiApplication::screenAt(centre);
  const QRect workArea = (screen ? screen : window.screen())->availableGeometry();
  const QPoint corner = centre - QPoint(size.width() / 2, size.height() / 2);
  return placeWithin({.workArea = workArea, .frame = {}}, QRect(corner, size));
}
}  // namespace orvane
