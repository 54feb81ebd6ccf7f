#include "platform/tray/tray_surroundings.h"
#include <QDBusVariant>
#include <utility>
#include "platform/tray/notifier/notifier_item.h"

namespace orvane {
namespace {
const auto watcherName = QLatin1String(NotifierItem::watcherName);
const auto watcherPath = QLatin1String(NotifierItem::watcherPath);
}  // namespace

TraySurroundings::TraySurroundings(Executor& executor, std::vector<std::string> desktopNames)
    : desktopNames_(std::move(desktopNames)),
      bus_(executor),
      watcher_(bus_, watcherName, [this](bool) { handleWatcher(); }),
      hostCame_(bus_, watcherPath, watcherName, QStringLiteral("StatusNotifierHostRegistered"),
                [this](const QDBusMessage&) { askForHost(); }),
      hostLeft_(bus_, watcherPath, watcherName, QStringLiteral("StatusNotifierHostUnregistered"),
                [this](const QDBusMessage&) { askForHost(); }),
      ayatanaIndicators_(bus_, QStringLiteral("org.ayatana.indicator.application"),
                         [this](bool) { announce(); }),
      canonicalIndicators_(bus_, QStringLiteral("com.canonical.indicator.application"),
                           [this](bool) { announce(); }),
      preference_(bus_, [this](ColorPreference preference) { setPreference(preference); }),
      portal_(bus_, portalService, [this](bool isOwned) {
        if (isOwned) { preference_.ask(PortalColorPreference::Start::never); }
      }) {
  managerObserver_ = manager_.observe([this] {
    dockingFailed_ = false;
    changed_.send();
  });
  lookObserver_ = manager_.observeLook([this] { changed_.send(); });
}

bool TraySurroundings::isKnown() const {
  return !bus_.isOpen() || (watcher_.isKnown() && isHostKnown_ && ayatanaIndicators_.isKnown() &&
                            canonicalIndicators_.isKnown());
}

TrayFacts TraySurroundings::facts() const {
  return {
      .desktopNames = desktopNames_,
      .notifierWatcher = watcher_.isOwned(),
      .notifierHost = watcher_.isOwned() && hasHost_,
      .indicatorService = ayatanaIndicators_.isOwned() || canonicalIndicators_.isOwned(),
      .trayManager = manager_.window() != XCB_WINDOW_NONE,
      .verticalTray = manager_.isVertical(),
      .dockingFailed = dockingFailed_,
  };
}

PanelShade TraySurroundings::shade() const {
  // GNOME's panel is dark whatever the user prefers for windows.
  const bool isGnome =
      choosePresentation({.desktopNames = desktopNames_}) == Presentation::labelBesideSymbol;
  if (isGnome) { return PanelShade::dark; }
  if (const auto foreground = manager_.foreground()) { return shadeForText(*foreground); }
  if (preferred_ == ColorPreference::dark) { return PanelShade::dark; }
  return preferred_ == ColorPreference::light ? PanelShade::light : PanelShade::unknown;
}

void TraySurroundings::dockingFailed() {
  dockingFailed_ = true;
  changed_.send();
}

Registration TraySurroundings::observe(std::function<void()> listener) {
  return changed_.subscribe(std::move(listener));
}

/// What the last watcher said about hosts says nothing about the next.
void TraySurroundings::handleWatcher() {
  isHostKnown_ = hasHost_ = false;
  if (bus_.isOpen()) {
    askForHost();
  } else {
    changed_.send();
  }
}

void TraySurroundings::askForHost() {
  if (!watcher_.isOwned()) {
    setHost(false);
    return;
  }
  auto call =
      callWithoutStarting(watcherName, watcherPath,
                          QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  call << QString(watcherName) << QStringLiteral("IsStatusNotifierHostRegistered");
  callOnBus(bus_, call, &watcher_, [this](const BusReply& reply) {
    // A watcher that does not say counts as one with a host.
    setHost(!reply || firstValue<QDBusVariant>(reply).variant().toBool());
  });
}

void TraySurroundings::setHost(bool hasHost) {
  hasHost_ = hasHost;
  isHostKnown_ = true;
  announce();
}

void TraySurroundings::announce() {
  if (isKnown()) { changed_.send(); }
}

void TraySurroundings::setPreference(ColorPreference preference) {
  if (std::exchange(preferred_, preference) != preference) { changed_.send(); }
}
}  // namespace orvane
