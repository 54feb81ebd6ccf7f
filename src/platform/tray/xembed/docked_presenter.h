#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/tray/presentation.h"
#include "platform/tray/status_presenter.h"
#include "platform/tray/xembed/docked_window.h"
#include "platform/tray/xembed/tray_manager.h"

namespace orvane {

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
};

}  // namespace orvane
