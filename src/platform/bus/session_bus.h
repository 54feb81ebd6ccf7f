#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <chrono>
#include <functional>
#include <optional>
#include <utility>

#include "platform/async/executor.h"
#include "platform/async/signal.h"
#include "platform/async/task.h"
#include "platform/async/timer.h"

namespace orvane {

/// A connection of our own to the session bus. A bus that is missing or goes away is looked for
/// again, at growing intervals, for as long as this exists.
class SessionBus final : public QObject {
  Q_OBJECT

 public:
  explicit SessionBus(Executor& executor);
  ~SessionBus() override;
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;

  [[nodiscard]] bool isOpen() const { return connection_.has_value(); }
  /// Only while it is open.
  [[nodiscard]] const QDBusConnection& connection() const { return *connection_; }
  /// Tells when the connection opened or was lost. Whatever was exported on it is gone then.
  [[nodiscard]] Registration observe(std::function<void()> listener);

 private Q_SLOTS:
  void handleDisconnected();

 private:
  void open();
  void close();
  void retryLater();

  Executor& executor_;
  QString name_;
  std::optional<QDBusConnection> connection_;
  ExecutorClock::duration retryDelay_;
  std::optional<OneShotTimer> retry_;
  Signal<> changed_;
};

/// A call that reaches the service only if it runs already.
[[nodiscard]] inline QDBusMessage callWithoutStarting(const QString& service, const QString& path,
                                                      const QString& interface,
                                                      const QString& method) {
  auto call = QDBusMessage::createMethodCall(service, path, interface, method);
  call.setAutoStartService(false);
  return call;
}

/// Sends the call and runs `handle` with its reply or failure, unless `receiver` is gone by then.
template <class Handle>
void callAsync(const QDBusConnection& connection, const QDBusMessage& call, QObject* receiver,
               Handle handle) {
  auto* const pending = new QDBusPendingCallWatcher(connection.asyncCall(call), receiver);
  QObject::connect(pending, &QDBusPendingCallWatcher::finished, receiver,
                   [handle = std::move(handle)](QDBusPendingCallWatcher* finished) {
                     finished->deleteLater();
                     handle(*finished);
                   });
}

/// The values of a reply; nothing where there was none: an error, no bus, no answer within the
/// deadline, or the calling task was cancelled.
using BusReply = std::optional<QVariantList>;

/// Calls a method on the bus. The deadline includes the start of a service that the bus can start.
[[nodiscard]] Task<BusReply> callOnBus(QDBusConnection bus, QDBusMessage call,
                                       std::chrono::milliseconds deadline);

}  // namespace orvane
