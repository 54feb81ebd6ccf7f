#pragma once

#include <QBasicTimer>
#include <QPushButton>
#include <functional>

#include "platform/desktop/menu.h"
#include "shell/view_models/card_contents.h"

namespace orvane {

/// "Refresh"; while its refresh runs, a moving indicator stands in the label's place and the
/// button cannot be pressed. Nothing moves while the button is out of sight.
class RefreshButton final : public QPushButton {
  Q_OBJECT

 public:
  /// `subject`: what is refreshed, for screen readers.
  RefreshButton(const QString& subject, std::function<void()> onPress, QWidget* parent = nullptr);

  void showState(const RefreshButtonState& state);
  /// Whether the indicator is being redrawn from time to time.
  [[nodiscard]] bool isMoving() const { return timer_.isActive(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void setBusy(bool busy);
  void startOrStopMoving();
  void drawSymbol();

  QString subject_;
  QBasicTimer timer_;
  int step_ = 0;
  bool isBusy_ = false;
  bool returnsFocus_ = false;  ///< had the focus when it became busy
};

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
