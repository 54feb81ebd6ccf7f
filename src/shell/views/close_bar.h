#pragma once

#include <QWidget>
#include <functional>

namespace orvane {

/// The bar at the bottom of the main window: closes it, and opens the help when there is one.
class CloseBar final : public QWidget {
  Q_OBJECT

 public:
  CloseBar(const std::function<void()>& onClose, const std::function<void()>& onHelp,
           QWidget* parent = nullptr);
};

}  // namespace orvane
