#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

namespace orvane {

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

}  // namespace orvane
