#pragma once

#include <functional>

#include "platform/async/executor.h"
#include "platform/desktop/signal.h"
#include "platform/desktop/status/bus/desktop_shade.h"
#include "platform/desktop/status/bus/session_bus.h"
#include "platform/desktop/status/bus/tray_services.h"
#include "platform/desktop/status/presentation.h"
#include "platform/desktop/status/xembed/tray_manager.h"

namespace orvane {

/// Everything around the status item that its presentation depends on, followed as it changes.
class TraySurroundings {
 public:
  TraySurroundings(Executor& executor, std::vector<std::string> desktopNames);
  TraySurroundings(const TraySurroundings&) = delete;
  TraySurroundings& operator=(const TraySurroundings&) = delete;

  /// The first answers are in.
  [[nodiscard]] bool isKnown() const { return services_.isKnown(); }
  [[nodiscard]] TrayFacts facts() const;
  [[nodiscard]] PanelShade shade() const;
  /// The tray did not take our window; this holds until another tray is there.
  void dockingFailed();
  [[nodiscard]] Registration observe(std::function<void()> listener);

  [[nodiscard]] SessionBus& bus() { return bus_; }
  [[nodiscard]] TrayManager& manager() { return manager_; }

 private:
  std::vector<std::string> desktopNames_;
  SessionBus bus_;
  TrayServices services_;
  DesktopShade shade_;
  TrayManager manager_;
  bool dockingFailed_ = false;
  Signal<> changed_;
  Registration observers_[3];
};

}  // namespace orvane
