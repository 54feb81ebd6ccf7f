#include "platform/tray/tray_surroundings.h"

#include <QDBusPendingReply>
#include <QDBusVariant>
#include <algorithm>
#include <utility>

#include "platform/bus/desktop_portal.h"
#include "platform/bus/session_bus.h"
#include "platform/tray/notifier/notifier_item.h"

namespace orvane {

namespace {

const auto watcherName = QLatin1String(NotifierItem::watcherName);
const auto watcherPath = QLatin1String(NotifierItem::watcherPath);
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

namespace {

PanelShade shadeOf(ColorPreference preference) {
  switch (preference) {
    case ColorPreference::none:
      return PanelShade::unknown;
    case ColorPreference::dark:
      return PanelShade::dark;
    case ColorPreference::light:
      return PanelShade::light;
  }
  return PanelShade::unknown;
}

}  // namespace

DesktopShade::DesktopShade(SessionBus& bus) : bus_(bus) {
  busObserver_ = bus_.observe([this] { follow(); });
  follow();
}

Registration DesktopShade::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

void DesktopShade::follow() {
  portal_.reset();
  preference_.reset();
  if (!bus_.isOpen()) { return; }
  preference_ = std::make_unique<PortalColorPreference>(
      bus_, [this](ColorPreference preference) { setShade(shadeOf(preference)); });
  portal_ = std::make_unique<QDBusServiceWatcher>(portalService, bus_.connection(),
                                                  QDBusServiceWatcher::WatchForRegistration);
  QObject::connect(portal_.get(), &QDBusServiceWatcher::serviceRegistered, preference_.get(),
                   [this] { ask(); });
  ask();
}

void DesktopShade::ask() { preference_->ask(PortalColorPreference::Start::never); }

void DesktopShade::setShade(PanelShade shade) {
  if (std::exchange(shade_, shade) != shade) { changed_.send(); }
}

TraySurroundings::TraySurroundings(Executor& executor, std::vector<std::string> desktopNames)
    : desktopNames_(std::move(desktopNames)), bus_(executor), services_(bus_), shade_(bus_) {
  observers_[0] = services_.observe([this] { changed_.send(); });
  observers_[1] = shade_.observe([this] { changed_.send(); });
  observers_[2] = manager_.observe([this] {
    dockingFailed_ = false;
    changed_.send();
  });
}

TrayFacts TraySurroundings::facts() const {
  return {.desktopNames = desktopNames_,
          .notifierWatcher = services_.hasWatcher(),
          .notifierHost = services_.hasHost(),
          .indicatorService = services_.hasIndicatorService(),
          .trayManager = manager_.window() != XCB_WINDOW_NONE,
          .dockingFailed = dockingFailed_};
}

PanelShade TraySurroundings::shade() const {
  // GNOME's panel is dark whatever the user prefers for windows.
  const bool isGnome =
      choosePresentation({.desktopNames = desktopNames_}) == Presentation::labelBesideSymbol;
  return isGnome ? PanelShade::dark : shade_.shade();
}

void TraySurroundings::dockingFailed() {
  dockingFailed_ = true;
  changed_.send();
}

Registration TraySurroundings::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

}  // namespace orvane
