#pragma once

#include <QWidget>
#include <memory>

#include "platform/async/executor.h"
#include "platform/desktop/desktop_window.h"
#include "shell/menu_bar/background_runtime.h"
#include "shell/menu_bar/window_visibility.h"

namespace orvane {

/// Stands around the content of a help or about window and leaves its place empty while the window
/// is not on screen or the application lives in the status area alone.
class MenuBarWindowContent final : public QWidget {
  Q_OBJECT

 public:
  /// `window`: the one this stands in; it and `executor` outlive this object.
  MenuBarWindowContent(std::unique_ptr<QWidget> content, DesktopWindow& window, Executor& executor,
                       std::shared_ptr<BackgroundRuntime> runtime, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void reportWindow();
  void showOrHideContent();

  DesktopWindow& window_;
  Executor& executor_;
  QWidget* content_;
  WindowVisibility visibility_;
};

}  // namespace orvane
