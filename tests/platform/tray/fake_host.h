#pragma once

#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QTest>
#include <QUuid>
#include <QtEndian>
#include <gtest/gtest.h>
#include "platform/bus/exported_object.h"
#include "platform/tray/notifier/notifier_item.h"

namespace orvane::test {
/// A row of the exported menu, or the menu as a whole, as a host reads it.
struct HostRow {
  explicit HostRow(const QDBusArgument& node) {
    node.beginStructure();
    node >> id >> properties;
    for (node.beginArray(); !node.atEnd();) {
      QDBusVariant child;
      node >> child;
      children.emplace_back(child.variant().value<QDBusArgument>());
    }
    node.endArray();
    node.endStructure();
  }

  [[nodiscard]] QString text(const char* property) const {
    return properties.value(QLatin1String(property)).toString();
  }

  int id = 0;
  QVariantMap properties;
  std::vector<HostRow> children;
};

/// A StatusNotifierWatcher with a host in one, on a connection of its own: it speaks to the item
/// as panels do.
class FakeHost final : public QObject {
  Q_OBJECT

 public:
  FakeHost() {
    for (const auto* interface : {itemInterface, menuInterface}) {
      connection.connect(QString(), QString(), QLatin1String(interface), QString(), this,
                         SLOT(hear(QDBusMessage)));
    }
  }
  ~FakeHost() override {
    // At once: the bus would learn of the end of a connection after a successor's wish for the
    // name.
    connection.unregisterService(QLatin1String(NotifierItem::watcherName));
    watcher_.reset();
    QDBusConnection::disconnectFromBus(name_);
  }

  /// Comes as a new owner of the watcher's name.
  void startWatcher() {
    const auto add = [this](const QVariantList& arguments) {
      registered.append(arguments.at(0).toString());
      return QVariantList();
    };
    const QString name(NotifierItem::watcherName);
    watcher_ = std::make_unique<ExportedObject>(
        connection, QLatin1String(NotifierItem::watcherPath),
        ObjectSurface{.interface = name,
                      .introspection = {},
                      .methods = {{"RegisterStatusNotifierItem", {"s", add}}},
                      .properties = [this] {
                        return QVariantMap{{"IsStatusNotifierHostRegistered", drawsItems_}};
                      }});
    connection.registerService(name);
  }
  /// The watcher stays, but nobody draws its items any more.
  void stopDrawing() {
    drawsItems_ = false;
    watcher_->sendSignal("StatusNotifierHostUnregistered");
  }

  /// These call the item that was registered last and wait for its reply.
  QVariantList callItem(const char* method, const QVariantList& arguments = {}) {
    return call(NotifierItem::itemPath, itemInterface, method, arguments);
  }
  QVariantList callMenu(const char* method, const QVariantList& arguments = {}) {
    return call(NotifierItem::menuPath, menuInterface, method, arguments);
  }
  [[nodiscard]] QVariantMap allProperties(const char* interface = itemInterface) {
    const QVariantList arguments{QLatin1String(interface)};
    return qdbus_cast<QVariantMap>(
        call(NotifierItem::itemPath, propertiesInterface, "GetAll", arguments).value(0));
  }
  [[nodiscard]] QVariant property(const char* name, const char* path = NotifierItem::itemPath,
                                  const char* interface = itemInterface) {
    const QVariantList arguments{QLatin1String(interface), QLatin1String(name)};
    const auto reply = call(path, propertiesInterface, "Get", arguments);
    return qvariant_cast<QDBusVariant>(reply.value(0)).variant();
  }
  [[nodiscard]] QString text(const char* name) { return property(name).toString(); }
  [[nodiscard]] QList<QImage> icons() {
    QList<QImage> icons;
    const auto pixmaps = property("IconPixmap").value<QDBusArgument>();
    for (pixmaps.beginArray(); !pixmaps.atEnd();) {
      int width = 0, height = 0;
      QByteArray bytes;
      pixmaps.beginStructure();
      pixmaps >> width >> height >> bytes;
      pixmaps.endStructure();
      QImage icon(width, height, QImage::Format_ARGB32);
      EXPECT_EQ(bytes.size(), icon.sizeInBytes());
      qFromBigEndian<quint32>(bytes.constData(), bytes.size() / 4, icon.bits());
      icons.append(icon);
    }
    pixmaps.endArray();
    return icons;
  }
  [[nodiscard]] HostRow layout(int parent = 0) {
    const auto reply = callMenu("GetLayout", {parent, -1, QStringList()});
    return HostRow(reply.value(1).value<QDBusArgument>());
  }

  QStringList registered;    ///< in their order
  QStringList signalsHeard;  ///< names of the item's and the menu's signals

 private Q_SLOTS:
  void hear(const QDBusMessage& signal) { signalsHeard.append(signal.member()); }

 private:
  static constexpr auto itemInterface = "org.kde.StatusNotifierItem";
  static constexpr auto menuInterface = "com.canonical.dbusmenu";
  static constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties";

  QVariantList call(const char* path, const char* interface, const char* method,
                    const QVariantList& arguments) {
    auto message =
        QDBusMessage::createMethodCall(registered.value(registered.size() - 1), QLatin1String(path),
                                       QLatin1String(interface), QLatin1String(method));
    message.setArguments(arguments);
    const QDBusPendingCall pending = connection.asyncCall(message);
    // The item lives in this thread: a blocking call would wait for itself.
    EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); })) << method;
    return pending.reply().arguments();
  }

  QString name_ = QUuid::createUuid().toString();
  std::unique_ptr<ExportedObject> watcher_;
  bool drawsItems_ = true;

 public:
  QDBusConnection connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_);
};
}  // namespace orvane::test
