#include "platform/desktop/qt/color_scheme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "platform/desktop/qt/scheme_palettes.h"

namespace orvane {
namespace {

const QString portalName = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString schemeKey = QStringLiteral("color-scheme");

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

/// An old portal wraps the value once more than it says.
ColorScheme::Preference preferenceIn(const QDBusVariant& value) {
  auto inner = value.variant();
  while (inner.canConvert<QDBusVariant>())
    inner = inner.value<QDBusVariant>().variant();
  switch (inner.toUInt()) {
    case 1:
      return ColorScheme::Preference::dark;
    case 2:
      return ColorScheme::Preference::light;
    default:
      return ColorScheme::Preference::none;
  }
}

}  // namespace

ColorScheme::ColorScheme() {
  // With a sender's name Qt would wait for the bus to say who that is.
  QDBusConnection::sessionBus().connect(QString(), portalPath, settingsInterface,
                                        QStringLiteral("SettingChanged"), this,
                                        SLOT(handleSetting(QDBusMessage)));
  ask();
}

void ColorScheme::ask() {
  auto question = QDBusMessage::createMethodCall(portalName, portalPath, settingsInterface,
                                                 QStringLiteral("Read"));
  question << appearanceGroup << schemeKey;
  auto* const watcher =
      new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (!reply.isError()) apply(preferenceIn(reply.value()));
    watcher->deleteLater();
  });
}

void ColorScheme::handleSetting(const QDBusMessage& message) {
  const auto arguments = message.arguments();
  if (arguments.value(0) == appearanceGroup && arguments.value(1) == schemeKey) {
    apply(preferenceIn(arguments.value(2).value<QDBusVariant>()));
  }
}

void ColorScheme::apply(Preference preference) {
  QApplication::setPalette(QPalette());  // what Qt makes of the desktop by itself
  const bool dark = isDark(QApplication::palette());
  switch (preference) {
    case Preference::none:
      break;
    case Preference::dark:
      if (!dark) QApplication::setPalette(darkPalette());
      break;
    case Preference::light:
      if (dark) QApplication::setPalette(lightPalette());
      break;
  }
}

}  // namespace orvane
