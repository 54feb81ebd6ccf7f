#pragma once

#include <QDBusMessage>
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
class DesktopNotificationCenter final : public NotificationCenter {
 public:
  /// `deadline` is how long the service, and its start, may take to answer.
  explicit DesktopNotificationCenter(SessionBus& bus,
                                     std::chrono::milliseconds deadline = std::chrono::seconds(10));
  DesktopNotificationCenter(const DesktopNotificationCenter&) = delete;
  DesktopNotificationCenter& operator=(const DesktopNotificationCenter&) = delete;

  /// What happens when the user clicks on one of our notifications.
  void onActivated(std::function<void()> callback) { activated_ = std::move(callback); }

  [[nodiscard]] Task<bool> requestAuthorization() override;
  [[nodiscard]] Task<bool> add(NotificationRequest request) override;

 private:
  /// A notification that the service was given, by the service's number.
  struct Shown {
    std::string identifier;
    uint number;
  };

  void noticeAction(uint number, const QString& action);
  [[nodiscard]] Task<BusReply> call(const QDBusMessage& message);
  [[nodiscard]] Task<QStringList> capabilities();
  [[nodiscard]] uint numberOf(const std::string& identifier) const;
  void remember(std::string identifier, uint number);
  void forgetService();

  SessionBus& bus_;
  std::chrono::milliseconds deadline_;
  std::function<void()> activated_;
  std::optional<QStringList> capabilities_;
  std::deque<Shown> shown_;
  BusName service_;
  BusSignal actionInvoked_;
};
}  // namespace orvane
