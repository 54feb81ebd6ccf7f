#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QObject>
#include <QString>
#include <utility>

namespace orvane {

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

}  // namespace orvane
