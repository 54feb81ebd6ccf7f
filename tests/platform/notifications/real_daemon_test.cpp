// The notifications as a real daemon gets them, on a bus that starts it when it is needed.

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <chrono>
#include <csignal>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "bus_fixture.h"
#include "platform/notifications/desktop_notification_center.h"

namespace orvane::test {
namespace {

const QString serviceName = QStringLiteral("org.freedesktop.Notifications");

constexpr const char* busConfiguration = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir=%1</listen>
  <servicedir>%1</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

constexpr const char* serviceFile = R"([D-BUS Service]
Name=org.freedesktop.Notifications
Exec=/usr/bin/dunst -conf %1/dunstrc
)";

/// A session bus whose one service is the notification daemon; it ends with the object.
class BusWithDaemon {
 public:
  BusWithDaemon() {
    write("bus.conf", busConfiguration);
    write("daemon.service", serviceFile);
    write("dunstrc", "[global]\nmarkup = full\n");
    bus_.start(QStringLiteral("dbus-daemon"),
               {QStringLiteral("--config-file=") + folder_.filePath(QStringLiteral("bus.conf")),
                QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    if (!bus_.waitForReadyRead()) {
      throw std::runtime_error("the bus does not start");
    }
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
  void write(const char* name, const char* content) const {
    QFile file(folder_.filePath(QString::fromLatin1(name)));
    const QString text = QString::fromLatin1(content);
    if (!file.open(QIODevice::WriteOnly)) {
      throw std::runtime_error("no file for the bus");
    }
    file.write((text.contains(QStringLiteral("%1")) ? text.arg(folder_.path()) : text).toUtf8());
  }

  QTemporaryDir folder_;
  QProcess bus_;
  QString address_;
};

class RealDaemonTest : public BusTest {
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
  NotificationRequest reward = paymentRequest("b", "from block #—");
  reward.title = "Block reward received";
  reward.sound = NotificationSound::critical;
  EXPECT_TRUE(run(center.add(reward)));
  const QList<QVariantMap> shown = history();
  const auto text = [](const QVariantMap& notification, const char* member) {
    return notification.value(QString::fromLatin1(member)).toString();
  };
  ASSERT_EQ(shown.size(), 2);
  for (const QVariantMap& notification : shown) {
    const bool isReward = text(notification, "summary") == QStringLiteral("Block reward received");
    EXPECT_EQ(text(notification, "appname"), QStringLiteral("Orvane"));
    EXPECT_EQ(text(notification, "default_action_name"), QStringLiteral("default"));
    EXPECT_EQ(text(notification, "body"),
              isReward ? QStringLiteral("from block #—")
                       : QStringLiteral("12,345 sats to &lt;you&gt; &amp; yours"));
  }

  const uint daemon = (*connection).interface()->servicePid(serviceName);
  ASSERT_EQ(::kill(static_cast<pid_t>(daemon), SIGKILL), 0);
  runUntil([this] { return !daemonRuns(); });
  EXPECT_TRUE(run(center.add(paymentRequest("c", "after the restart"))));
  EXPECT_EQ(history().size(), 1);
}

}  // namespace
}  // namespace orvane::test
