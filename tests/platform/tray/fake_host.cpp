#include "fake_host.h"

#include <QDBusPendingCallWatcher>
#include <QUuid>

#include <gtest/gtest.h>

#include "desktop_session.h"
#include "platform/tray/notifier/notifier_item.h"

namespace orvane::test {
namespace {

const auto watcherName = QLatin1String(WatcherRegistration::watcherName);
constexpr auto itemInterface = "org.kde.StatusNotifierItem";
constexpr auto menuInterface = "com.canonical.dbusmenu";

}  // namespace

FakeHost::FakeHost()
    : name_(QUuid::createUuid().toString()),
      connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_)) {
  for (const auto* interface : {itemInterface, menuInterface}) {
    connection_.connect(QString(), QString(), QLatin1String(interface), QString(), this,
                        SLOT(hear(QDBusMessage)));
  }
}

FakeHost::~FakeHost() {
  watcher_.reset();
  QDBusConnection::disconnectFromBus(name_);
}

void FakeHost::hear(const QDBusMessage& signal) { signalsHeard.append(signal.member()); }

void FakeHost::startWatcher() {
  watcher_ = std::make_unique<ExportedObject>(
      connection_, QStringLiteral("/StatusNotifierWatcher"),
      ObjectSurface{.interface = watcherName,
                    .introspection = {},
                    .methods = {{QStringLiteral("RegisterStatusNotifierItem"),
                                 {QStringLiteral("s"),
                                  [this](const QVariantList& arguments) {
                                    registered.append(arguments.at(0).toString());
                                    return QVariantList();
                                  }}}},
                    .properties = [] {
                      return QVariantMap{{QStringLiteral("IsStatusNotifierHostRegistered"), true}};
                    }});
  connection_.registerService(watcherName);
}

void FakeHost::stopWatcher() {
  connection_.unregisterService(watcherName);
  watcher_.reset();
}

QDBusMessage FakeHost::call(const char* path, const char* interface, const char* method,
                            const QVariantList& arguments) {
  auto message =
      QDBusMessage::createMethodCall(registered.value(registered.size() - 1), QLatin1String(path),
                                     QLatin1String(interface), QLatin1String(method));
  message.setArguments(arguments);
  const QDBusPendingCall pending = connection_.asyncCall(message, 5000);
  // The item lives in this thread: a blocking call would wait for itself.
  EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); })) << method;
  return pending.reply();
}

QDBusMessage FakeHost::callItem(const char* method, const QVariantList& arguments) {
  return call(NotifierItem::itemPath, itemInterface, method, arguments);
}

QDBusMessage FakeHost::callMenu(const char* method, const QVariantList& arguments) {
  return call(NotifierItem::menuPath, menuInterface, method, arguments);
}

QVariantMap FakeHost::allProperties(const char* interface) {
  const auto reply = call(NotifierItem::itemPath, "org.freedesktop.DBus.Properties", "GetAll",
                          {QLatin1String(interface)});
  return qdbus_cast<QVariantMap>(reply.arguments().value(0));
}

QVariant FakeHost::property(const char* name) {
  const auto reply = call(NotifierItem::itemPath, "org.freedesktop.DBus.Properties", "Get",
                          {QLatin1String(itemInterface), QLatin1String(name)});
  return qvariant_cast<QDBusVariant>(reply.arguments().value(0)).variant();
}

MenuLayoutNode FakeHost::layout() {
  const auto reply = callMenu("GetLayout", {0, -1, QStringList()});
  return qdbus_cast<MenuLayoutNode>(reply.arguments().value(1));
}

int FakeHost::rowId(const char* label) {
  for (const auto& child : layout().children) {
    const auto row = qdbus_cast<MenuLayoutNode>(child.variant());
    if (row.properties.value(QStringLiteral("label")) == QLatin1String(label)) { return row.id; }
  }
  return 0;
}

}  // namespace orvane::test
