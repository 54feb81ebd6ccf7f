#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/desktop/status/popup_menu.h"
#include "platform/desktop/status/presentation.h"
#include "platform/desktop/status/status_presenter.h"
#include "platform/desktop/status/tray_surroundings.h"
#include "platform/desktop/status_item.h"

namespace orvane {

/// The status item on the Linux desktop: holds what is to be shown, and moves it to another
/// presentation whenever the tray around it changes.
class DesktopStatusItem final : public StatusItem {
 public:
  using ActivationToken = std::function<void(const std::string& token)>;

  DesktopStatusItem(Executor& executor, std::vector<std::string> desktopNames,
                    ActivationToken activationToken);

  /// Each presentation takes the width that its image needs, so the length adds nothing.
  void setLength(double /*points*/) override {}
  void setImage(const std::optional<StatusImage>& image) override;
  void setToolTip(const std::string& text) override;
  void setAction(Action action) override { action_ = std::move(action); }
  void setMenu(std::optional<Menu> menu) override { menu_ = std::move(menu); }
  void performClick() override;

 private:
  void handleSurroundings();
  void present();
  void showSoon();
  [[nodiscard]] std::unique_ptr<StatusPresenter> makePresenter(Presentation presentation);
  [[nodiscard]] StatusRequests requests();
  void click();
  /// Asks for the menu as a right click does and keeps it from being shown.
  [[nodiscard]] std::optional<Menu> takeMenu();

  Executor& executor_;
  ActivationToken activationToken_;
  TraySurroundings surroundings_;
  StatusContent content_;
  Action action_;
  std::optional<Menu> menu_;
  bool takingMenu_ = false;
  std::optional<Menu> takenMenu_;
  PopupMenu popup_;
  Presentation presentation_ = Presentation::square;
  std::unique_ptr<StatusPresenter> presenter_;
  std::optional<OneShotTimer> settling_;
  std::optional<OneShotTimer> showing_;
  Registration surroundingsObserver_;
};

}  // namespace orvane
