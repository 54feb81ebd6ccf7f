#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QImage>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "platform/bus/exported_object.h"

namespace orvane {

/// One size of an icon, (iiay): ARGB32 in network byte order, not premultiplied.
struct NotifierPixmap {
  int width = 0;
  int height = 0;
  QByteArray bytes;
  bool operator==(const NotifierPixmap&) const = default;
};
using NotifierPixmaps = QList<NotifierPixmap>;

/// (sa(iiay)ss)
struct NotifierToolTip {
  QString iconName;
  NotifierPixmaps icon;
  QString title;
  QString description;
  bool operator==(const NotifierToolTip&) const = default;
};

[[nodiscard]] NotifierPixmap notifierPixmap(const QImage& image);

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);

/// Must have run before one of these travels over the bus; repeating it is harmless.
void registerNotifierTypes();

/// Names a status item to the watcher of the session bus, and again to every watcher that takes
/// its place: hosts that start late or restart get the item back that way.
class WatcherRegistration final : public QObject {
  Q_OBJECT

 public:
  static constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";

  WatcherRegistration(const QDBusConnection& connection, QString itemName);

 private:
  void registerItem();

  QDBusConnection connection_;
  QString itemName_;
  QDBusServiceWatcher owners_;
};

/// What the StatusNotifierItem tells its hosts.
struct NotifierState {
  QString title;  ///< what a screen reader says
  QString iconName;
  QString iconThemePath;
  NotifierPixmaps iconPixmaps;
  NotifierToolTip toolTip;
  std::optional<QString> label;  ///< only for hosts that write it beside the icon
};

/// What hosts ask of the item. Positions are on the screen, in pixels.
struct NotifierRequests {
  std::function<void()> activate;
  std::function<void(int x, int y)> contextMenu;
  std::function<void(const std::string& token)> activationToken;
};

/// A StatusNotifierItem on the session bus, with its bus name and its registration.
class NotifierItem final {
 public:
  static constexpr const char* itemPath = "/StatusNotifierItem";
  static constexpr const char* menuPath = "/MenuBar";

  NotifierItem(const QDBusConnection& connection, NotifierRequests requests, NotifierState state);
  ~NotifierItem();
  NotifierItem(const NotifierItem&) = delete;
  NotifierItem& operator=(const NotifierItem&) = delete;

  /// Announces exactly what differs from before.
  void setState(NotifierState state);

 private:
  [[nodiscard]] ObjectSurface surface();
  [[nodiscard]] QVariantMap properties() const;

  QDBusConnection connection_;
  QString busName_;
  NotifierRequests requests_;
  NotifierState state_;
  ExportedObject object_;
  std::optional<WatcherRegistration> registration_;
};

}  // namespace orvane

Q_DECLARE_METATYPE(orvane::NotifierPixmap)
Q_DECLARE_METATYPE(orvane::NotifierPixmaps)
Q_DECLARE_METATYPE(orvane::NotifierToolTip)
