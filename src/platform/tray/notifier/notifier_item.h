#pragma once

#include <QDBusConnection>
#include <QImage>
#include <QList>
#include <QString>
#include <QVariantMap>
#include <optional>
#include "platform/bus/exported_object.h"
#include "platform/bus/session_bus.h"
#include "platform/tray/presentation.h"

namespace orvane {
/// What the StatusNotifierItem tells its hosts.
struct NotifierState {
  QString title;  ///< what a screen reader says
  QString iconName;
  QString iconThemePath;
  QList<QImage> icons;  ///< one icon in several sizes
  QString toolTip;
  std::optional<QString> label;  ///< only for hosts that write it beside the icon
};

/// A StatusNotifierItem on the session bus. It names its connection to the watcher that is there,
/// and again to every watcher that takes its place: hosts that start late or restart get the item
/// back that way. It owns no name of its own on the bus: GNOME's extension follows such a name, and
/// destroys the item when it hears of the name's owner only after the item's first answer. So the
/// end of the connection is the only sign that the item is gone.
class NotifierItem final {
 public:
  static constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
  static constexpr const char* watcherPath = "/StatusNotifierWatcher";
  static constexpr const char* itemPath = "/StatusNotifierItem";
  static constexpr const char* menuPath = "/MenuBar";

  /// While the bus is open; nothing else that outlives the item is on its connection.
  NotifierItem(SessionBus& bus, StatusRequests requests, NotifierState state);
  NotifierItem(const NotifierItem&) = delete;
  NotifierItem& operator=(const NotifierItem&) = delete;

  /// Announces exactly what differs from before.
  void setState(NotifierState state);
  /// Has the hosts read the icon once more.
  void announceIcon();

 private:
  [[nodiscard]] ObjectSurface surface();
  [[nodiscard]] QVariantMap properties() const;
  void registerItem();

  QDBusConnection connection_;
  StatusRequests requests_;
  NotifierState state_;
  ExportedObject object_;
  BusName watcher_;
};
}  // namespace orvane
