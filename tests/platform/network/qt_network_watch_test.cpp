#include "platform/network/qt_network_watch.h"
#include <QDBusConnection>
#include <QDBusMessage>
#include "platform/eventloop/real_time.h"

namespace orvane::test {
/// NetworkManager, on the bus that the test's process takes for the system's.
class FakeNetworkManager final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.NetworkManager")
  Q_PROPERTY(uint State READ state)
  Q_PROPERTY(uint Connectivity READ state)

 public:
  FakeNetworkManager() {
    bus_.registerObject(path_, this, QDBusConnection::ExportAllProperties);
    bus_.registerService(QStringLiteral("org.freedesktop.NetworkManager"));
  }
  [[nodiscard]] uint state() const { return state_; }
  void setState(uint state) {
    state_ = state;
    auto change =
        QDBusMessage::createSignal(path_, QStringLiteral("org.freedesktop.DBus.Properties"),
                                   QStringLiteral("PropertiesChanged"));
    change << QStringLiteral("org.freedesktop.NetworkManager")
           << QVariantMap{{QStringLiteral("State"), state}} << QStringList();
    bus_.send(change);
  }

 private:
  uint state_ = 20;
  QString path_ = QStringLiteral("/org/freedesktop/NetworkManager");
  QDBusConnection bus_ = QDBusConnection::systemBus();
};

namespace {
using QtNetworkWatchTest = RealTimeTest;

TEST_F(QtNetworkWatchTest, TellsOfEachNetworkThatLeadsBeyondThisMachine) {
  ::setenv("DBUS_SYSTEM_BUS_ADDRESS", ::getenv("DBUS_SESSION_BUS_ADDRESS"), 1);
  FakeNetworkManager manager;
  QtNetworkWatch watch(std::chrono::milliseconds(0));
  letPass(std::chrono::milliseconds(20));
  std::string heard;
  const Registration listener = watch.onReachable([&] { heard += '!'; });
  // Local, site, global, lost, global, site, local, and disconnected.
  for (const uint state : {50U, 60U, 70U, 20U, 70U, 60U, 50U, 20U, 70U}) {
    heard += std::to_string(state) + " ";
    manager.setState(state);
    letPass(std::chrono::milliseconds(20));
  }
  EXPECT_EQ(heard, "50 60 !70 !20 70 !60 50 20 70 !");
  QtNetworkWatch later(std::chrono::milliseconds(0));
  heard.clear();
  const Registration laterListener = later.onReachable([&] { heard += '!'; });
  letPass(std::chrono::milliseconds(20));
  EXPECT_EQ(heard, "!") << "the network may have come back before the watch began";
}
}  // namespace
}  // namespace orvane::test

#include "qt_network_watch_test.moc"
