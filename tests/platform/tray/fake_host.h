#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <memory>

#include "platform/bus/exported_object.h"
#include "platform/tray/notifier/menu_export.h"

namespace orvane::test {

/// A StatusNotifierWatcher with a host in one, on a connection of its own: it speaks to the item
/// as panels do.
class FakeHost final : public QObject {
  Q_OBJECT

 public:
  FakeHost();
  ~FakeHost() override;

  /// Comes as a new owner of the watcher's name.
  void startWatcher();
  void stopWatcher();
  void own(const char* name) { connection_.registerService(QLatin1String(name)); }

  /// Calls the item registered last and waits for its reply.
  QDBusMessage callItem(const char* method, const QVariantList& arguments = {});
  QDBusMessage callMenu(const char* method, const QVariantList& arguments = {});
  [[nodiscard]] QVariantMap allProperties(const char* interface = "org.kde.StatusNotifierItem");
  [[nodiscard]] QVariant property(const char* name);
  [[nodiscard]] MenuLayoutNode layout();
  /// The number of the row with this label; 0 when there is none.
  [[nodiscard]] int rowId(const char* label);

  QStringList registered;    ///< in their order
  QStringList signalsHeard;  ///< names of the item's and the menu's signals

 private Q_SLOTS:
  void hear(const QDBusMessage& signal);

 private:
  QDBusMessage call(const char* path, const char* interface, const char* method,
                    const QVariantList& arguments);

  QString name_;
  QDBusConnection connection_;
  std::unique_ptr<ExportedObject> watcher_;
};

}  // namespace orvane::test
