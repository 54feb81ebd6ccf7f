#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <functional>

namespace orvane {

/// Where the desktop portal is on the session bus.
inline const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

/// Whether the user prefers light or dark programs; the numbers are the portal's.
enum class ColorPreference { none = 0, dark = 1, light = 2 };

/// Follows the user's preference as the desktop portal tells it over one connection. Nothing waits
/// for an answer; where there is no portal none comes.
class PortalColorPreference final : public QObject {
  Q_OBJECT

 public:
  /// Whether a question may start a portal that does not run.
  enum class Start { allowed, never };

  /// Runs `handle` with each answer and after each change, which may be to the same preference.
  PortalColorPreference(const QDBusConnection& bus, std::function<void(ColorPreference)> handle);

  /// Asks what holds now.
  void ask(Start start);

 private Q_SLOTS:
  void handleSetting(const QDBusMessage& message);

 private:
  QDBusConnection bus_;
  std::function<void(ColorPreference)> handle_;
};

}  // namespace orvane
