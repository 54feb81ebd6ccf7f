#pragma once

#include <functional>
#include <string>
#include <vector>
#include "platform/async/executor.h"
#include "platform/async/signal.h"
#include "platform/bus/desktop_portal.h"
#include "platform/bus/session_bus.h"
#include "platform/tray/drawing/status_drawing.h"
#include "platform/tray/presentation.h"
#include "platform/tray/xembed/tray_manager.h"

namespace orvane {
/// Everything around the status item that its presentation depends on, followed as it changes: the
/// tray services on the session bus and the old tray of the X screen, and the user's preference for
/// a light or dark desktop, which panels follow as a rule. It starts no service; one that starts
/// later is asked then.
class TraySurroundings {
 public:
  TraySurroundings(Executor& executor, std::vector<std::string> desktopNames);
  TraySurroundings(const TraySurroundings&) = delete;
  TraySurroundings& operator=(const TraySurroundings&) = delete;

  /// The first answers are in, or there is no bus to ask.
  [[nodiscard]] bool isKnown() const;
  [[nodiscard]] TrayFacts facts() const;
  /// As the old tray tells it, or the portal by the user's preference; unknown where neither does.
  [[nodiscard]] PanelShade shade() const;
  /// The tray did not take our window; this holds until another tray is there.
  void dockingFailed();
  [[nodiscard]] Registration observe(std::function<void()> listener);

  [[nodiscard]] TrayManager& manager() { return manager_; }

 private:
  void handleWatcher();
  void askForHost();
  void setHost(bool hasHost);
  void announce();
  void setPreference(ColorPreference preference);

  std::vector<std::string> desktopNames_;
  SessionBus bus_;
  BusName watcher_;
  BusSignal hostCame_;
  BusSignal hostLeft_;
  bool isHostKnown_ = false;
  bool hasHost_ = false;
  BusName ayatanaIndicators_;
  BusName canonicalIndicators_;
  PortalColorPreference preference_;
  BusName portal_;
  ColorPreference preferred_ = ColorPreference::none;
  TrayManager manager_;
  bool dockingFailed_ = false;
  Signal<> changed_;
  Registration managerObserver_;
  Registration lookObserver_;
};
}  // namespace orvane
