#pragma once

#include <QWidget>
#include <functional>

#include "platform/desktop/menu.h"

namespace orvane {

/// The bar at the bottom of the main window: closes it, and holds a menu of the application's
/// commands when there are any.
class CloseBar final : public QWidget {
 public:
  /// `onClose` runs for the Close button and for Escape.
  CloseBar(const std::function<void()>& onClose, const Menu& commands, QWidget* parent = nullptr);
};

}  // namespace orvane
