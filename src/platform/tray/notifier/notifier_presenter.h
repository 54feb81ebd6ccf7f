#pragma once

#include <QImage>
#include <QString>
#include <optional>

#include "platform/async/executor.h"
#include "platform/bus/session_bus.h"
#include "platform/tray/notifier/menu_export.h"
#include "platform/tray/notifier/notifier_item.h"
#include "platform/tray/popup_menu.h"
#include "platform/tray/presentation.h"
#include "platform/tray/status_presenter.h"

namespace orvane {

/// Hands images to hosts that read icons from files. Each image gets a name of its own, for hosts
/// do not read a name twice. The folder lies in the user's runtime directory and goes with the
/// object; what a killed process left behind goes with the next one.
class IconFolder {
 public:
  IconFolder();
  ~IconFolder();
  IconFolder(const IconFolder&) = delete;
  IconFolder& operator=(const IconFolder&) = delete;

  /// Empty when there is no place to write to.
  [[nodiscard]] const QString& path() const { return path_; }
  /// The icon's name, which stands for a file in `path`; empty when it could not be written. The
  /// image before it stays readable for hosts that are late.
  [[nodiscard]] QString store(const QImage& image);

 private:
  QString path_;
  QString newest_;
  QString previous_;
  int count_ = 0;
};

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
