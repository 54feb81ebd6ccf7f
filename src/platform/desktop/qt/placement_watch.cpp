#include "platform/desktop/qt/placement_watch.h"
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <chrono>
#include <utility>

namespace orvane {
namespace {
using namespace std::chrono_literals;

/// Longer than a window manager takes to answer, shorter than a user from one act to the next.
constexpr auto moment = 500ms;
}  // namespace

PlacementWatch::PlacementWatch(QWidget& window) : window_(window), last_(window.geometry()) {
  settled_.setSingleShot(true);
  settled_.setInterval(moment);
  connect(&settled_, &QTimer::timeout, this, &PlacementWatch::settle);
  window_.installEventFilter(this);
  // A window manager moves what stood on a screen that goes.
  connect(qGuiApp, &QGuiApplication::screenAdded, this, &PlacementWatch::programActs);
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, &PlacementWatch::programActs);
}

void PlacementWatch::begin(const ChosenPlacement& chosen, Keep keep) {
  chosen_ = chosen;
  keep_ = std::move(keep);
}

void PlacementWatch::programActs() {
  programActs_.setRemainingTime(moment);
  noticeChange(false);
}

bool PlacementWatch::eventFilter(QObject* /*watched*/, QEvent* event) {
  const bool isChange = event->type() == QEvent::Move || event->type() == QEvent::Resize;
  if (isChange && !event->spontaneous()) {
    programActs();
  } else if (isChange) {
    noticeChange(isPlaced(window_) && programActs_.hasExpired());
  } else if (event->type() == QEvent::Hide && !event->spontaneous() && settled_.isActive()) {
    settle();
  }
  return false;
}

void PlacementWatch::noticeChange(bool isFromOutside) {
  isProgramsChange_ = isProgramsChange_ || !isFromOutside;
  settled_.start();
}

/// Only now: that a window fills the screen may become known after it has become as large.
void PlacementWatch::settle() {
  settled_.stop();
  const bool isPrograms = std::exchange(isProgramsChange_, false);
  if (window_.isMinimized() || fillsScreen(window_)) { return; }
  const QRect before = std::exchange(last_, window_.geometry());
  if (!isPrograms && before != last_) { adopt(before); }
}

void PlacementWatch::adopt(const QRect& before) {
  if (last_.width() != before.width()) { chosen_.width = last_.width(); }
  if (last_.height() != before.height()) { chosen_.height = last_.height(); }
  if (canPlaceWindows()) { chosen_.centre = centreOf(last_); }
  if (keep_) { keep_(chosen_); }
}
}  // namespace orvane
