#include "platform/bus/desktop_portal.h"
#include <QDBusVariant>
#include <utility>

namespace orvane {
namespace {
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
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

PortalColorPreference::PortalColorPreference(SessionBus& bus,
                                             std::function<void(ColorPreference)> handle)
    : bus_(bus),
      handle_(std::move(handle)),
      settingChanged_(bus, portalPath, settingsInterface, QStringLiteral("SettingChanged"),
                      [this](const QDBusMessage& message) { handleSetting(message); }) {}

void PortalColorPreference::ask(Start start) {
  auto question = QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface,
                                                 QStringLiteral("Read"));
  question.setAutoStartService(start == Start::allowed);
  question << appearanceGroup << schemeKey;
  callOnBus(bus_, question, this, [this](const BusReply& reply) {
    if (reply && reply->value(0).canConvert<QDBusVariant>()) {
      handle_(preferenceIn(reply->value(0)));
    }
  });
}

void PortalColorPreference::handleSetting(const QDBusMessage& message) {
  const auto arguments = message.arguments();
  if (arguments.value(0) == appearanceGroup && arguments.value(1) == schemeKey) {
    handle_(preferenceIn(arguments.value(2)));
  }
}
}  // namespace orvane
