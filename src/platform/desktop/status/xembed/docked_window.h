#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "platform/desktop/status/status_presenter.h"

namespace orvane {

/// The status item as a window that an old system tray takes in. It takes the height that the tray
/// gives it and asks for the width that its image needs.
class DockedWindow final : public QWidget {
  Q_OBJECT

 public:
  enum class Shape { square, wide };
  struct Look {
    Shape shape;
    bool alpha;                        ///< the tray wants it transparent by its alpha channel
    std::optional<QColor> foreground;  ///< of the panel's texts, where it is known
  };

  DockedWindow(Look look, std::function<void()> click, std::function<void(QPoint)> menu);

  void show(const StatusContent& content);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void redraw();
  void askForWidth();
  [[nodiscard]] int iconHeight() const;
  [[nodiscard]] PanelShade shade() const;
  [[nodiscard]] const QImage& background();

  Look look_;
  std::function<void()> click_;
  std::function<void(QPoint)> menu_;
  StatusContent content_;
  QImage background_;
  QImage drawn_;
};

}  // namespace orvane
