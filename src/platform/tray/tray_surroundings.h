#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <set>

#include "platform/async/executor.h"
#include "platform/async/signal.h"
#include "platform/bus/desktop_portal.h"
#include "platform/bus/session_bus.h"
#include "platform/tray/drawing/status_drawing.h"
#include "platform/tray/presentation.h"
#include "platform/tray/xembed/tray_manager.h"

namespace orvane {

/// Which tray services are on the session bus, followed as they come and go.
class TrayServices final : public QObject {
  Q_OBJECT

 public:
  explicit TrayServices(SessionBus& bus);

  /// The first answers are in, or there is no bus to ask.
  [[nodiscard]] bool isKnown() const { return !bus_.isOpen() || (listed_ && hostKnown_); }
  [[nodiscard]] bool hasWatcher() const;
  [[nodiscard]] bool hasHost() const { return hasWatcher() && hasHost_; }
  [[nodiscard]] bool hasIndicatorService() const;
  [[nodiscard]] Registration observe(std::function<void()> listener);

 private Q_SLOTS:
  void askForHost();

 private:
  void follow();
  void list();
  void setOwned(const QString& name, bool owned);
  void setHost(bool hasHost);

  SessionBus& bus_;
  std::unique_ptr<QDBusServiceWatcher> owners_;
  std::set<QString> owned_;
  bool listed_ = false;
  bool hostKnown_ = false;
  bool hasHost_ = false;
  Signal<> changed_;
  Registration busObserver_;
};

/// Whether the user prefers a light or a dark desktop, as the desktop portal tells; panels follow
/// that as a rule. Unknown without a portal, or without a preference. Starts no portal; one that
/// starts later is asked then.
class DesktopShade {
 public:
  explicit DesktopShade(SessionBus& bus);

  [[nodiscard]] PanelShade shade() const { return shade_; }
  [[nodiscard]] Registration observe(std::function<void()> listener);

 private:
  void follow();
  void ask();
  void setShade(PanelShade shade);

  SessionBus& bus_;
  std::unique_ptr<PortalColorPreference> preference_;
  std::unique_ptr<QDBusServiceWatcher> portal_;
  PanelShade shade_ = PanelShade::unknown;
  Signal<> changed_;
  Registration busObserver_;
};

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
