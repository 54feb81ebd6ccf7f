#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QTimer>
#include <functional>
#include <optional>
#include <stdexcept>
#include <utility>

#include <gtest/gtest.h>

#include "platform/async/task_scope.h"
#include "platform/notifications/notification_center.h"
#include "support/run_task.h"
#include "support/virtual_executor.h"

namespace orvane::test {

/// Tasks that wait for a real bus: the executor's clock stands still, Qt's events go on.
class BusTest : public testing::Test {
 protected:
  /// Lets events and callbacks run until `done`; fails the test when that takes too long.
  void runUntil(const std::function<bool()>& done) {
    const QDeadlineTimer deadline(20'000);
    QTimer wakeUp;  // what is waited for need not be an event of this process
    wakeUp.start(50);
    for (executor.runUntilIdle(); !done(); executor.runUntilIdle()) {
      if (deadline.hasExpired()) {
        throw std::runtime_error("nothing happens");
      }
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
  }

  template <class T>
  T run(Task<T> task) {
    std::optional<T> result;
    TaskScope scope(executor);
    const TaskHandle handle = scope.spawn(detail::storeResult(std::move(task), result));
    runUntil([&] { return handle.finished(); });
    return std::move(*result);
  }

  VirtualExecutor executor;

 private:
  int argumentCount_ = 0;
  QCoreApplication application_{argumentCount_, nullptr};
};

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
