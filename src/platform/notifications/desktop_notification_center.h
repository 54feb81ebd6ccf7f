#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QStringList>
#include <chrono>
#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "platform/bus/session_bus.h"
#include "platform/notifications/notification_center.h"

namespace orvane {

/// Notifications through the desktop's service, org.freedesktop.Notifications. Authorization is
/// granted when the service runs or the bus can start it. Where it takes markup, bodies are
/// escaped. It may be restarted at any time: what was learned of the old one is forgotten.
///
/// Lives on the main thread and outlives the tasks that use it.
class DesktopNotificationCenter final : public QObject, public NotificationCenter {
  Q_OBJECT

 public:
  /// `deadline` is how long the service, and its start, may take to answer.
  explicit DesktopNotificationCenter(const QDBusConnection& bus,
                                     std::chrono::milliseconds deadline = std::chrono::seconds(10));

  /// What happens when the user clicks on one of our notifications.
  void onActivated(std::function<void()> callback) { activated_ = std::move(callback); }

  [[nodiscard]] Task<bool> requestAuthorization() override;
  [[nodiscard]] Task<bool> add(NotificationRequest request) override;

 private Q_SLOTS:
  void noticeAction(uint number, const QString& action);

 private:
  /// A notification that the service was given, by the service's number.
  struct Shown {
    std::string identifier;
    uint number;
  };

  [[nodiscard]] Task<BusReply> call(const QDBusMessage& message);
  [[nodiscard]] Task<QStringList> capabilities();
  [[nodiscard]] uint numberOf(const std::string& identifier) const;
  void remember(std::string identifier, uint number);
  void forgetService();

  QDBusConnection bus_;
  std::chrono::milliseconds deadline_;
  QDBusServiceWatcher watcher_;
  std::function<void()> activated_;
  std::optional<QStringList> capabilities_;
  std::deque<Shown> shown_;
};

}  // namespace orvane
