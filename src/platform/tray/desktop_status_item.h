#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/async/executor.h"
#include "platform/async/timer.h"
#include "platform/tray/popup_menu.h"
#include "platform/tray/presentation.h"
#include "platform/tray/status_item.h"
#include "platform/tray/status_presenter.h"
#include "platform/tray/tray_surroundings.h"

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

/// The status area of a Linux desktop: whatever tray host there is now or later. Lives on the main
/// thread, within the life of the QApplication.
class DesktopStatusBar final : public StatusBar {
 public:
  /// `activationToken` hears the token with which the next window may come to the front, before the
  /// click that it belongs to.
  explicit DesktopStatusBar(Executor& executor,
                            std::function<void(const std::string& token)> activationToken = {});

  /// Never nothing: an item without a host waits for one.
  [[nodiscard]] std::unique_ptr<StatusItem> createItem(double length) override;
  [[nodiscard]] std::optional<PointSize> symbolSize(const std::string& name,
                                                    double pointSize) const override;
  [[nodiscard]] PointSize textSize(const std::string& text, double pointSize) const override;

 private:
  Executor& executor_;
  std::function<void(const std::string& token)> activationToken_;
  std::vector<std::string> desktopNames_;
};

}  // namespace orvane
