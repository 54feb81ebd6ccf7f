#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/tray/presentation.h"
#include "platform/tray/xembed/tray_manager.h"

namespace orvane {
/// The status item as a window that an old system tray takes in. It takes the height that the tray
/// gives it and asks for the width that its image needs. Where it gets less than it asks for, it
/// shows the square image and keeps asking: a panel that is told to make room gets the wide one.
class DockedWindow final : public QWidget {
  Q_OBJECT

 public:
  enum class Shape { square, wide };
  struct Look {
    Shape shape;
    bool alpha;                        ///< the tray wants it transparent by its alpha channel
    std::optional<QColor> foreground;  ///< of the panel's texts, where it is known
  };

  DockedWindow(Executor& executor, Look look, StatusRequests requests);

  void setContent(const StatusContent& content);
  /// The panel looks different now, or may do so.
  void handlePanel(const std::optional<QColor>& foreground);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void redraw();
  [[nodiscard]] QImage draw(Shape shape, int height) const;
  void askForWidth(int imageWidth);
  void followScale();
  [[nodiscard]] int iconHeight() const;
  [[nodiscard]] PanelShade shade() const;
  void readBackgroundSoon();
  void readBackground();
  void fitPlace();

  Executor& executor_;
  Look look_;
  StatusRequests requests_;
  StatusContent content_;
  int panelScale_;
  QImage background_;
  int fittings_ = 0;  ///< that are left until the content changes
  QImage drawn_;
  std::optional<OneShotTimer> readingBackground_;
};

/// The status item in an old system tray, with tool tip and menu of our own. It docks again when
/// the tray is replaced.
class DockedPresenter final : public StatusPresenter {
 public:
  /// `failed` is called when the tray has not taken the window in after a while.
  DockedPresenter(Presentation presentation, TrayManager& manager, Executor& executor,
                  StatusRequests requests, std::function<void()> failed);

  void show(const StatusContent& content) override;

 private:
  void dock();
  [[nodiscard]] xcb_window_t windowId() const;

  DockedWindow::Shape shape_;
  TrayManager& manager_;
  Executor& executor_;
  StatusRequests requests_;
  std::function<void()> failed_;
  std::optional<StatusContent> content_;
  std::unique_ptr<DockedWindow> window_;
  std::optional<OneShotTimer> check_;
  Registration managerObserver_;
  Registration takenObserver_;
  Registration lookObserver_;
};
}  // namespace orvane
