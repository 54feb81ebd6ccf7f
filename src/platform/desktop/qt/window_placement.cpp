#include "platform/desktop/qt/window_placement.h"
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
}  // namespace orvane
