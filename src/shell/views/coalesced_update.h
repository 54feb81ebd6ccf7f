#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

namespace orvane {
/// Folds any number of announcements into one update a turn of the event loop. A view that is
/// not on screen is not updated until it shows again.
class CoalescedUpdate final : public QObject {
 public:
  /// `view` outlives this object.
  CoalescedUpdate(QWidget& view, std::function<void()> update);
  void request();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void run();

  QWidget& view_;
  std::function<void()> update_;
  bool isNeeded_ = false;
  bool isQueued_ = false;
};
}  // namespace orvane
