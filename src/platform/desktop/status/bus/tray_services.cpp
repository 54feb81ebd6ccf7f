#include "platform/desktop/status/bus/tray_services.h"

#include <QDBusPendingReply>
#include <QDBusVariant>
#include <algorithm>
#include <utility>

#include "platform/desktop/status/bus/bus_calls.h"
#include "platform/desktop/status/bus/watcher_registration.h"

namespace orvane {
namespace {

const auto watcherName = QLatin1String(WatcherRegistration::watcherName);
const auto watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QStringList indicatorNames{QStringLiteral("org.ayatana.indicator.application"),
                                 QStringLiteral("com.canonical.indicator.application")};

}  // namespace

TrayServices::TrayServices(SessionBus& bus) : bus_(bus) {
  busObserver_ = bus_.observe([this] {
    follow();
    changed_.send();
  });
  follow();
}

bool TrayServices::hasWatcher() const { return owned_.contains(watcherName); }

bool TrayServices::hasIndicatorService() const {
  return std::ranges::any_of(indicatorNames,
                             [this](const QString& name) { return owned_.contains(name); });
}

Registration TrayServices::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

void TrayServices::follow() {
  owned_.clear();
  listed_ = hostKnown_ = hasHost_ = false;
  owners_.reset();
  if (!bus_.isOpen()) { return; }
  owners_ = std::make_unique<QDBusServiceWatcher>();
  owners_->setConnection(bus_.connection());
  owners_->setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
  for (const auto& name : QStringList(watcherName) + indicatorNames) {
    owners_->addWatchedService(name);
  }
  connect(owners_.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString& name, const QString&, const QString& newOwner) {
            setOwned(name, !newOwner.isEmpty());
          });
  auto connection = bus_.connection();
  for (const auto* name : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    // With a sender's name Qt would wait for the bus to say who that is.
    connection.connect(QString(), watcherPath, watcherName, QLatin1String(name), this,
                       SLOT(askForHost()));
  }
  list();
}

void TrayServices::list() {
  const auto bus = QStringLiteral("org.freedesktop.DBus");
  const auto call = callWithoutStarting(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                        QStringLiteral("ListNames"));
  callAsync(bus_.connection(), call, this, [this](const QDBusPendingCall& finished) {
    const QDBusPendingReply<QStringList> reply(finished);
    if (reply.isError()) { return; }
    for (const auto& name : reply.value()) {
      if (name == watcherName || indicatorNames.contains(name)) { owned_.insert(name); }
    }
    listed_ = true;
    askForHost();
  });
}

void TrayServices::setOwned(const QString& name, bool owned) {
  if (owned) {
    owned_.insert(name);
  } else {
    owned_.erase(name);
  }
  if (name == watcherName) {
    askForHost();
  } else if (isKnown()) {
    changed_.send();
  }
}

void TrayServices::askForHost() {
  if (!bus_.isOpen()) { return; }
  if (!hasWatcher()) {
    setHost(false);
    return;
  }
  auto call =
      callWithoutStarting(watcherName, watcherPath,
                          QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  call << QString(watcherName) << QStringLiteral("IsStatusNotifierHostRegistered");
  callAsync(bus_.connection(), call, this, [this](const QDBusPendingCall& finished) {
    const QDBusPendingReply<QDBusVariant> reply(finished);
    // A watcher that does not say counts as one with a host.
    setHost(reply.isError() || reply.value().variant().toBool());
  });
}

void TrayServices::setHost(bool hasHost) {
  hasHost_ = hasHost;
  hostKnown_ = true;
  if (isKnown()) { changed_.send(); }
}

}  // namespace orvane
