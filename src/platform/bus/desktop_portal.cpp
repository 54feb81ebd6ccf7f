#include "platform/bus/desktop_portal.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <utility>

namespace orvane {

namespace {

const auto settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto schemeKey = QStringLiteral("color-scheme");

/// `Read` wraps the value once more than the signal does.
ColorPreference preferenceIn(QVariant value) {
  while (value.canConvert<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  switch (value.toUInt()) {
    case 1:
      return ColorPreference::dark;
    case 2:
      return ColorPreference::light;
    default:
      return ColorPreference::none;
  }
}

}  // namespace

PortalColorPreference::PortalColorPreference(const QDBusConnection& bus,
                                             std::function<void(ColorPreference)> handle)
    : bus_(bus), handle_(std::move(handle)) {
  // With a sender's name Qt would wait for the bus to say who that is.
  bus_.connect(QString(), portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
               SLOT(handleSetting(QDBusMessage)));
}

void PortalColorPreference::ask(Start start) {
  auto question = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface,
                                                 QStringLiteral("Read"));
  question.setAutoStartService(start == Start::allowed);
  question << appearanceGroup << schemeKey;
  auto* const watcher = new QDBusPendingCallWatcher(bus_.asyncCall(question), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    watcher->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (!reply.isError()) { handle_(preferenceIn(reply.value().variant())); }
  });
}

void PortalColorPreference::handleSetting(const QDBusMessage& message) {
  const auto arguments = message.arguments();
  if (arguments.value(0) == appearanceGroup && arguments.value(1) == schemeKey) {
    handle_(preferenceIn(arguments.value(2)));
  }
}

}  // namespace orvane
