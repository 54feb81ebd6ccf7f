#pragma once

#include <QAbstractScrollArea>
#include <QScrollBar>

namespace orvane {

/// A scroll bar that is only its handle: the cards and tables stay what the eye sees first.
class ThinScrollBar final : public QScrollBar {
  Q_OBJECT

 public:
  explicit ThinScrollBar(Qt::Orientation orientation, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// Gives both directions of `area` thin scroll bars.
void useThinScrollBars(QAbstractScrollArea& area);

}  // namespace orvane
