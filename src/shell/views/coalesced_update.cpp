#include "shell/views/coalesced_update.h"
#include <QEvent>
#include <utility>

namespace orvane {
CoalescedUpdate::CoalescedUpdate(QWidget& view, std::function<void()> update)
    : view_(view), update_(std::move(update)) {
  view_.installEventFilter(this);
}

void CoalescedUpdate::request() {
  isNeeded_ = true;
  if (isQueued_ || !view_.isVisible()) { return; }
  isQueued_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        isQueued_ = false;
        if (view_.isVisible()) { run(); }
      },
      Qt::QueuedConnection);
}

bool CoalescedUpdate::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show) { run(); }
  return QObject::eventFilter(watched, event);
}

void CoalescedUpdate::run() {
  if (!isNeeded_) { return; }
  isNeeded_ = false;
  update_();
}
}  // namespace orvane
