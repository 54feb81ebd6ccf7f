// The notifications as a real daemon gets them, started by the bus when it is needed.

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QTemporaryDir>
#include <csignal>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "bus_fixture.h"
#include "platform/notifications/desktop_notification_center.h"
#include "support/session_tools.h"

namespace orvane::test {
namespace {

const QString serviceName = QStringLiteral("org.freedesktop.Notifications");

class RealDaemonTest : public RealTimeTest {
 protected:
  RealDaemonTest() { std::ofstream(configuration) << "[global]\nmarkup = full\n"; }
  QDBusMessage askDaemon(const char* method) const {
    return bus.connection().call(QDBusMessage::createMethodCall(
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
    return bus.connection().interface()->isServiceRegistered(serviceName);
  }

  QTemporaryDir folder;
  std::string configuration = folder.filePath(QStringLiteral("dunstrc")).toStdString();
  StartableService daemon{serviceName.toStdString(), "/usr/bin/dunst -conf " + configuration};
  SessionBus bus{*executor};
  DesktopNotificationCenter center{bus};
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

  const uint daemon = bus.connection().interface()->servicePid(serviceName);
  ASSERT_EQ(::kill(static_cast<pid_t>(daemon), SIGKILL), 0);
  letPassUntil([this] { return !daemonRuns(); });
  EXPECT_TRUE(run(center.add(paymentRequest("c", "after the restart"))));
  EXPECT_EQ(history().size(), 1);
}

}  // namespace
}  // namespace orvane::test
