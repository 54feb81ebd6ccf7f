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

  /// What happens when the user clicks on one of our notifications. The token permits to take the
  /// focus; empty where the service hands none out.
  void onActivated(std::function<void(const std::string& activationToken)> callback) {
    activated_ = std::move(callback);
  }

  [[nodiscard]] Task<bool> requestAuthorization() override;
  [[nodiscard]] Task<bool> add(NotificationRequest request) override;

 private:
  /// A notification that the service was given, by the service's number.
  struct Shown {
    std::string identifier;
    uint number;
  };

  void noticeToken(uint number, const QString& token);
  void noticeAction(uint number, const QString& action);
  [[nodiscard]] Task<BusReply> call(const QDBusMessage& message);
  [[nodiscard]] Task<QStringList> capabilities();
  [[nodiscard]] uint numberOf(const std::string& identifier) const;
  void remember(std::string identifier, uint number);
  void forgetService();

  SessionBus& bus_;
  std::chrono::milliseconds deadline_;
  std::function<void(const std::string&)> activated_;
  uint tokenNumber_ = 0;  ///< of the notification that the token came with
  std::string token_;     ///< comes before the action that it is for
  std::optional<QStringList> capabilities_;
  std::deque<Shown> shown_;
  BusName service_;
  BusSignal activationToken_;
  BusSignal actionInvoked_;
};
}  // namespace orvane
