#pragma once

#include <QDBusConnection>
#include <utility>

#include "platform/eventloop/real_time.h"
#include "platform/notifications/notification_center.h"

namespace orvane::test {

/// A connection of its own to a bus, which ends with the object.
class OwnConnection {
 public:
  explicit OwnConnection(const QString& address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"))
      : bus_(QDBusConnection::connectToBus(address, name())) {}
  OwnConnection(const OwnConnection&) = delete;
  OwnConnection& operator=(const OwnConnection&) = delete;
  ~OwnConnection() { QDBusConnection::disconnectFromBus(name()); }

  [[nodiscard]] const QDBusConnection& operator*() const { return bus_; }

 private:
  static QString name() { return QStringLiteral("connection under test"); }

  QDBusConnection bus_;
};

inline NotificationRequest paymentRequest(std::string identifier, std::string body = "1 sats") {
  return {.identifier = std::move(identifier),
          .title = "Payment received",
          .body = std::move(body),
          .sound = NotificationSound::standard};
}

}  // namespace orvane::test
