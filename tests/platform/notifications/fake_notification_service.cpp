#include "fake_notification_service.h"

#include <stdexcept>
#include <utility>

namespace orvane::test {
namespace {

const auto connectionName = QStringLiteral("fake notification service");

}  // namespace

FakeNotificationService::FakeNotificationService(QStringList capabilities, uint firstNumber)
    : connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName)),
      capabilities_(std::move(capabilities)),
      nextNumber_(firstNumber) {
  const bool isServing =
      connection_.registerObject(
          QStringLiteral("/org/freedesktop/Notifications"), this,
          QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) &&
      connection_.registerService(QStringLiteral("org.freedesktop.Notifications"));
  if (!isServing) { throw std::runtime_error("another notification service is running"); }
}

FakeNotificationService::~FakeNotificationService() {
  connection_.unregisterService(QStringLiteral("org.freedesktop.Notifications"));
  QDBusConnection::disconnectFromBus(connectionName);
}

QStringList FakeNotificationService::GetCapabilities() {
  ++capabilitiesAsked;
  return capabilities_;
}

uint FakeNotificationService::Notify(const QString& application, uint replaces, const QString& icon,
                                     const QString& summary, const QString& body,
                                     const QStringList& actions, const QVariantMap& hints,
                                     int expires) {
  if (refuses) {
    sendErrorReply(QDBusError::LimitsExceeded);
    return 0;
  }
  setDelayedReply(!answers);
  const uint number = replaces == 0 ? nextNumber_++ : replaces;
  notified.push_back({.application = application,
                      .replaces = replaces,
                      .icon = icon,
                      .summary = summary,
                      .body = body,
                      .actions = actions,
                      .hints = hints,
                      .expires = expires,
                      .number = number});
  return number;
}

}  // namespace orvane::test
