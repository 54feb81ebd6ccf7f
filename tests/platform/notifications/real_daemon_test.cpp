// The notifications as a real daemon gets them, on a bus that starts it when it is needed.

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>
#include <string>

#include <gtest/gtest.h>

#include "bus_fixture.h"
#include "platform/notifications/desktop_notification_center.h"

namespace orvane::test {
namespace {

const QString serviceName = QStringLiteral("org.freedesktop.Notifications");

/// A session bus that starts the notification daemon when it is needed; it ends with the object.
class BusWithDaemon {
 public:
  BusWithDaemon() {
    const QString services = folder_.filePath(QStringLiteral("dbus-1/services"));
    QDir().mkpath(services);
    write(folder_.filePath(QStringLiteral("dunstrc")), "[global]\nmarkup = full\n");
    write(services + QStringLiteral("/daemon.service"),
          QStringLiteral("[D-BUS Service]\nName=%1\nExec=/usr/bin/dunst -conf %2/dunstrc\n")
              .arg(serviceName, folder_.path())
              .toUtf8());
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder_.path());
    bus_.setProcessEnvironment(environment);
    bus_.start(
        QStringLiteral("dbus-daemon"),
        {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address"),
         QStringLiteral("--address=unix:dir=") + folder_.path()});
    EXPECT_TRUE(bus_.waitForReadyRead()) << "the bus does not start";
    address_ = QString::fromUtf8(bus_.readLine()).trimmed();
  }
  BusWithDaemon(const BusWithDaemon&) = delete;
  BusWithDaemon& operator=(const BusWithDaemon&) = delete;
  ~BusWithDaemon() {
    bus_.terminate();
    bus_.waitForFinished();
  }

  [[nodiscard]] const QString& address() const { return address_; }

 private:
  static void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  QTemporaryDir folder_;
  QProcess bus_;
  QString address_;
};

class RealDaemonTest : public RealTimeTest {
 protected:
  QDBusMessage askDaemon(const char* method) const {
    return (*connection)
        .call(QDBusMessage::createMethodCall(
            serviceName, QStringLiteral("/org/freedesktop/Notifications"),
            QStringLiteral("org.dunstproject.cmd0"), QString::fromLatin1(method)));
  }
  /// Closes what is on the screen; then everything that was shown, the newest first.
  [[nodiscard]] QList<QVariantMap> history() const {
    askDaemon("NotificationCloseAll");
    return qdbus_cast<QList<QVariantMap>>(
        askDaemon("NotificationListHistory").arguments().value(0));
  }
  [[nodiscard]] bool daemonRuns() const {
    return (*connection).interface()->isServiceRegistered(serviceName);
  }

  BusWithDaemon bus;
  OwnConnection connection{bus.address()};
  DesktopNotificationCenter center{*connection};
};

TEST_F(RealDaemonTest, ShowsReplacesAndSurvivesItsRestart) {
  EXPECT_TRUE(run(center.requestAuthorization()));
  EXPECT_FALSE(daemonRuns());

  EXPECT_TRUE(run(center.add(paymentRequest("a", "first"))));
  EXPECT_TRUE(run(center.add(paymentRequest("a", "12,345 sats to <you> & yours"))));
  const QList<QVariantMap> shown = history();
  ASSERT_EQ(shown.size(), 1);
  EXPECT_EQ(shown[0].value(QStringLiteral("appname")), QStringLiteral("Orvane"));
  EXPECT_EQ(shown[0].value(QStringLiteral("default_action_name")), QStringLiteral("default"));
  EXPECT_EQ(shown[0].value(QStringLiteral("body")),
            QStringLiteral("12,345 sats to &lt;you&gt; &amp; yours"));

  const uint daemon = (*connection).interface()->servicePid(serviceName);
  ASSERT_EQ(::kill(static_cast<pid_t>(daemon), SIGKILL), 0);
  letPassUntil([this] { return !daemonRuns(); });
  EXPECT_TRUE(run(center.add(paymentRequest("c", "after the restart"))));
  EXPECT_EQ(history().size(), 1);
}

}  // namespace
}  // namespace orvane::test
