#pragma once

#include <QPushButton>

#include "platform/desktop/menu.h"

namespace orvane {

/// A button that opens a menu of the application's commands. Their keys work in every window of
/// the application while the button is on screen.
class CommandButton final : public QPushButton {
  Q_OBJECT

 public:
  explicit CommandButton(const Menu& commands, QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void drawSymbol();
};

}  // namespace orvane
