#include "platform/desktop/status/bus/desktop_shade.h"

#include <QDBusPendingReply>
#include <utility>

#include "platform/desktop/status/bus/bus_calls.h"

namespace orvane {
namespace {

const auto portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearance = QStringLiteral("org.freedesktop.appearance");
const auto colorScheme = QStringLiteral("color-scheme");

/// `Read` wraps its value once more than the signal does.
uint unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  return value.toUInt();
}

PanelShade shadeOf(uint preference) {
  if (preference == 1) return PanelShade::dark;
  return preference == 2 ? PanelShade::light : PanelShade::unknown;
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
  if (!bus_.isOpen()) return;
  auto connection = bus_.connection();
  portal_ = std::make_unique<QDBusServiceWatcher>(portalName, connection,
                                                  QDBusServiceWatcher::WatchForRegistration);
  connect(portal_.get(), &QDBusServiceWatcher::serviceRegistered, this, &DesktopShade::ask);
  // With a sender's name Qt would wait for the bus to say who that is.
  connection.connect(QString(), portalPath, settingsInterface, QStringLiteral("SettingChanged"),
                     this, SLOT(handleSetting(QString, QString, QDBusVariant)));
  ask();
}

void DesktopShade::ask() {
  if (!bus_.isOpen()) return;
  auto call =
      callWithoutStarting(portalName, portalPath, settingsInterface, QStringLiteral("Read"));
  call << appearance << colorScheme;
  callAsync(bus_.connection(), call, this, [this](const QDBusPendingCall& finished) {
    const QDBusPendingReply<QDBusVariant> reply(finished);
    if (!reply.isError()) setShade(shadeOf(unwrapped(reply.value().variant())));
  });
}

void DesktopShade::handleSetting(const QString& group, const QString& key,
                                 const QDBusVariant& value) {
  if (group == appearance && key == colorScheme) setShade(shadeOf(unwrapped(value.variant())));
}

void DesktopShade::setShade(PanelShade shade) {
  if (std::exchange(shade_, shade) != shade) changed_.send();
}

}  // namespace orvane
