#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include "platform/async/executor.h"
#include "platform/tray/status_item.h"

namespace orvane {
/// The status area of a Linux desktop: whatever tray host there is now or later. Lives on the main
/// thread, within the life of the QApplication.
class DesktopStatusBar final : public StatusBar {
 public:
  using ActivationToken = std::function<void(const std::string& token)>;

  /// `activationToken` hears the token with which the next window may come to the front, before the
  /// click that it belongs to.
  explicit DesktopStatusBar(Executor& executor, ActivationToken activationToken = {});

  /// Never nothing: an item without a host waits for one.
  [[nodiscard]] std::unique_ptr<StatusItem> createItem(double length) override;
  [[nodiscard]] std::optional<PointSize> symbolSize(const std::string& name,
                                                    double pointSize) const override;
  [[nodiscard]] PointSize textSize(const std::string& text, double pointSize) const override;

 private:
  Executor& executor_;
  ActivationToken activationToken_;
  std::vector<std::string> desktopNames_;
};
}  // namespace orvane
