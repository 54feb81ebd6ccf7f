#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>
#include <QWidget>
#include <functional>
#include "platform/desktop/qt/window_placement.h"

namespace orvane {
/// Finds out what the user decides of a window's size and place. The program sizes its window too,
/// and window managers place it, answer the program and fill screens with it; none of that counts.
///
/// Nobody says who moved a window. What changes it from outside, once it is on screen and the
/// program has left it alone for a moment, is taken for the user's doing.
class PlacementWatch final : public QObject {
 public:
  using Keep = std::function<void(const ChosenPlacement&)>;

  /// `window`, a top-level widget, outlives the watch.
  explicit PlacementWatch(QWidget& window);

  /// Begins with what the user decided earlier. `keep` is told of each decision once it stands for
  /// a moment, and at the latest when the window is hidden.
  void begin(const ChosenPlacement& chosen, Keep keep);
  [[nodiscard]] const ChosenPlacement& chosen() const { return chosen_; }
  /// What happens to the window within the next moment is not the user's doing.
  void programActs();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void noticeChange(bool isFromOutside);
  void settle();
  void adopt(const QRect& before);

  QWidget& window_;
  QRect last_;  ///< where it was, neither minimised nor filling the screen
  ChosenPlacement chosen_;
  Keep keep_;
  QDeadlineTimer programActs_;
  bool isProgramsChange_ = false;  ///< what has been noticed since it last settled
  QTimer settled_;
};
}  // namespace orvane
