#pragma once

#include <QMenu>
#include <QPoint>
#include <memory>

#include "platform/async/executor.h"
#include "platform/desktop/menu.h"

namespace orvane {

/// The menu of the status item in a window of our own, for where no host shows it.
class PopupMenu {
 public:
  explicit PopupMenu(Executor& executor) : executor_(executor) {}

  /// Shows `menu` beside a point of the screen, in place of one that is still open. An action runs
  /// after the menu has closed.
  void popUp(const Menu& menu, const QPoint& position);

 private:
  void addRow(const MenuItem& item);

  Executor& executor_;
  std::unique_ptr<QMenu> shown_;
};

}  // namespace orvane
