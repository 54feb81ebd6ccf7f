#pragma once

#include <optional>

#include "platform/async/executor.h"
#include "platform/desktop/status/bus/menu_export.h"
#include "platform/desktop/status/bus/notifier_item.h"
#include "platform/desktop/status/bus/session_bus.h"
#include "platform/desktop/status/icon_folder.h"
#include "platform/desktop/status/popup_menu.h"
#include "platform/desktop/status/presentation.h"
#include "platform/desktop/status/status_presenter.h"

namespace orvane {

/// The status item as a StatusNotifierItem with its menu, in one of the four presentations that
/// such hosts can show.
class NotifierPresenter final : public StatusPresenter {
 public:
  NotifierPresenter(Presentation presentation, SessionBus& bus, Executor& executor,
                    StatusRequests requests);

  void show(const StatusContent& content) override;

 private:
  [[nodiscard]] NotifierState stateFor(const StatusContent& content);
  void addIcon(NotifierState& state, const StatusImage& image, const StatusInk& ink);
  void appear();
  [[nodiscard]] NotifierRequests notifierRequests();

  Presentation presentation_;
  SessionBus& bus_;
  Executor& executor_;
  StatusRequests requests_;
  PopupMenu popup_;
  std::optional<IconFolder> icons_;
  std::optional<StatusContent> content_;
  NotifierState state_;
  std::optional<MenuExport> menu_;
  std::optional<NotifierItem> item_;
  Registration busObserver_;
};

}  // namespace orvane
