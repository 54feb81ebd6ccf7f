#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <functional>
#include <map>
#include "platform/bus/session_bus.h"

namespace orvane {
/// The desktop portal's name on the session bus.
inline const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");

/// The file that says that the program runs in a Flatpak, and in which.
inline const QString flatpakInfoFile = QStringLiteral("/.flatpak-info");

/// Whether the user prefers light or dark programs; the numbers are the portal's.
enum class ColorPreference { none = 0, dark = 1, light = 2 };

/// Follows a setting as the desktop portal tells it. Nothing waits for an answer; where there is no
/// portal, or not this setting, none comes.
class PortalSetting final : public QObject {
 public:
  /// Whether a question may start a portal that does not run.
  enum class Start { allowed, never };

  /// Runs `handle` with each answer and after each change, which may be to the same value.
  PortalSetting(SessionBus& bus, QString group, QString key,
                std::function<void(const QVariant&)> handle);

  /// Asks what holds now.
  void ask(Start start);

 private:
  SessionBus& bus_;
  QString group_;
  QString key_;
  std::function<void(const QVariant&)> handle_;
  BusSignal changed_;
};

/// Follows which of light and dark the user prefers.
class PortalColorPreference final {
 public:
  using Start = PortalSetting::Start;

  PortalColorPreference(SessionBus& bus, std::function<void(ColorPreference)> handle);
  void ask(Start start) { setting_.ask(start); }

 private:
  PortalSetting setting_;
};

/// Follows whether the user wishes for higher contrast.
class PortalContrastWish final {
 public:
  PortalContrastWish(SessionBus& bus, std::function<void(bool isHigher)> handle);
  void ask(PortalSetting::Start start);

 private:
  void tell();

  std::function<void(bool)> handle_;
  bool isWished_ = false;
  bool isWishedOfGnome_ = false;
  PortalSetting setting_;
  PortalSetting settingOfGnome_;  ///< which older portals have alone
};

/// Requests to the desktop portal, which answers them when the user has.
class PortalRequests final : public QObject {
 public:
  struct Request {
    QString interface;
    QString method;
    QVariantList arguments;  ///< without the options, which come last
    QVariantMap options;
  };

  explicit PortalRequests(SessionBus& bus);

  /// Calls `answered` with what the user agreed to; not at all when that is nothing. Calls
  /// `missing` instead when there is no portal that takes such requests.
  void send(Request request, std::function<void(const QVariantMap& results)> answered,
            std::function<void()> missing);

 private:
  void hear(const QDBusMessage& response);

  SessionBus& bus_;
  std::map<QString, std::function<void(const QVariantMap&)>> sent_;  ///< by the request's path
  int last_ = 0;
  BusSignal response_;
};
}  // namespace orvane
