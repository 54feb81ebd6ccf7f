#include "platform/desktop/status/bus/watcher_registration.h"

#include <QDBusMessage>
#include <utility>

namespace orvane {
namespace {

QString watcher() { return QLatin1String(WatcherRegistration::watcherName); }

}  // namespace

WatcherRegistration::WatcherRegistration(const QDBusConnection& connection, QString itemName)
    : connection_(connection),
      itemName_(std::move(itemName)),
      owners_(watcher(), connection, QDBusServiceWatcher::WatchForRegistration) {
  connect(&owners_, &QDBusServiceWatcher::serviceRegistered, this,
          &WatcherRegistration::registerItem);
  // After the subscription: a watcher that comes now is told twice rather than never. A call
  // without a watcher fails and changes nothing.
  registerItem();
}

void WatcherRegistration::registerItem() {
  auto call =
      QDBusMessage::createMethodCall(watcher(), QStringLiteral("/StatusNotifierWatcher"), watcher(),
                                     QStringLiteral("RegisterStatusNotifierItem"));
  call << itemName_;
  call.setAutoStartService(false);
  connection_.call(call, QDBus::NoBlock);
}

}  // namespace orvane
