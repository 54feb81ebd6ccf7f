#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <functional>
#include "platform/bus/session_bus.h"

namespace orvane {
/// The desktop portal's name on the session bus.
inline const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");

/// Whether the user prefers light or dark programs; the numbers are the portal's.
enum class ColorPreference { none = 0, dark = 1, light = 2 };

/// Follows the user's preference as the desktop portal tells it. Nothing waits for an answer;
/// where there is no portal none comes.
class PortalColorPreference final : public QObject {
 public:
  /// Whether a question may start a portal that does not run.
  enum class Start { allowed, never };

  /// Runs `handle` with each answer and after each change, which may be to the same preference.
  PortalColorPreference(SessionBus& bus, std::function<void(ColorPreference)> handle);

  /// Asks what holds now.
  void ask(Start start);

 private:
  void handleSetting(const QDBusMessage& message);

  SessionBus& bus_;
  std::function<void(ColorPreference)> handle_;
  BusSignal settingChanged_;
};
}  // namespace orvane
