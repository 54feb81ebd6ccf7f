#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <set>

#include "platform/desktop/signal.h"
#include "platform/desktop/status/bus/session_bus.h"

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

}  // namespace orvane
