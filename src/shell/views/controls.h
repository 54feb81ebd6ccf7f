#pragma once

#include <QBasicTimer>
#include <QPushButton>
#include <functional>
#include <vector>
#include "shell/view_models/window_contents.h"
#include "shell/views/frames.h"
#include "shell/views/screen_reader.h"

class QRadioButton;

namespace orvane {
/// A button with a text, with room around it in every font: some styles leave a large one hardly
/// any.
class TextButton : public QPushButton {
 public:
  TextButton(const QString& text, QWidget* parent);
  [[nodiscard]] QSize sizeHint() const override;
};

/// "Refresh"; while its refresh runs, a moving indicator stands in the label's place and the
/// button keeps the focus, but cannot be pressed. Nothing moves while the button is out of sight.
class RefreshButton final : public TextButton, public SpokenWidget {
  Q_OBJECT

 public:
  /// `subject`: what is refreshed, for screen readers.
  RefreshButton(const QString& subject, std::function<void()> onPress, QWidget* parent = nullptr);
  void showState(const RefreshButtonState& state);
  /// Whether the indicator is being redrawn from time to time.
  [[nodiscard]] bool isMoving() const { return timer_.isActive(); }

  [[nodiscard]] SpokenWords spokenWords() const override;
  void pressSpoken() override { click(); }

 protected:
  [[nodiscard]] bool hitButton(const QPoint& position) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void setBusy(bool busy);
  void startOrStopMoving();
  void awaitNextStep();
  void drawSymbol();
  void drawLabelFromRight(QPainter& painter, const QColor& color) const;

  QString subject_;
  QBasicTimer timer_;
  int step_ = 0;
  bool isBusy_ = false;
};

/// A choice of one among few, side by side: to the keyboard and to screen readers a group of radio
/// buttons, with one station of the Tab key, the chosen one.
class SegmentedPicker final : public Surface, public SpokenWidget {
 public:
  /// `group`: what is chosen for, as screen readers say it; `subject`: what is chosen, where that
  /// is not the group. `onChoose` is called with the index of the choice that the user made, and
  /// only then.
  SegmentedPicker(const QString& group, const QString& subject, const QStringList& choices,
                  const std::function<void(std::size_t)>& onChoose, QWidget* parent = nullptr);
  void showChoice(std::size_t index);

  /// The design's width, or as wide as equal segments need.
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  [[nodiscard]] SpokenWords spokenWords() const override {
    return {.role = QAccessible::Grouping, .name = accessibleName()};
  }

 private:
  std::vector<QRadioButton*> segments_;
  bool isShowing_ = false;
};
}  // namespace orvane
