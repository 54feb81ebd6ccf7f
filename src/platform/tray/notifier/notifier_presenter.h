#pragma once

#include <memory>
#include <optional>
#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/bus/session_bus.h"
#include "platform/tray/notifier/menu_export.h"
#include "platform/tray/notifier/notifier_item.h"
#include "platform/tray/presentation.h"

namespace orvane {
class IconFolder;

/// The status item as a StatusNotifierItem with its menu, in one of the four presentations that
/// such hosts can show. It has a connection of its own to the session bus, so that every host
/// drops the item when the presenter goes.
class NotifierPresenter final : public StatusPresenter {
 public:
  NotifierPresenter(Presentation presentation, Executor& executor, StatusRequests requests);
  ~NotifierPresenter() override;

  void show(const StatusContent& content) override;

 private:
  [[nodiscard]] NotifierState stateFor(const StatusContent& content);
  void addIcon(NotifierState& state, const StatusImage& image, const StatusInk& ink);
  void addFile(NotifierState& state, const QImage& image);
  void appear();
  void announceIconAgain();

  Presentation presentation_;
  Executor& executor_;
  SessionBus bus_;
  StatusRequests requests_;
  std::unique_ptr<IconFolder> icons_;
  std::optional<StatusContent> content_;
  NotifierState state_;
  std::optional<MenuExport> menu_;
  std::optional<NotifierItem> item_;
  std::optional<OneShotTimer> announcingAgain_;
  Registration busObserver_;
};
}  // namespace orvane
