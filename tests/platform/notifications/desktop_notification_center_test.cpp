#include "platform/notifications/desktop_notification_center.h"

#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QTemporaryDir>
#include <fstream>

#include <gmock/gmock.h>

#include "fake_notification_service.h"
#include "platform/eventloop/real_time.h"
#include "support/run_task.h"
#include "support/session_tools.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Field;

const QString markup = QStringLiteral("body-markup");
const QString clicked = QStringLiteral("default");

NotificationRequest payment(std::string identifier, std::string body = "1 sats") {
  return {.identifier = std::move(identifier),
          .title = "Payment received",
          .body = std::move(body),
          .sound = NotificationSound::standard};
}

class DesktopNotificationCenterTest : public RealTimeTest {
 protected:
  bool add(NotificationRequest request) { return run(center.add(std::move(request))); }

  SessionBus bus{*executor};
  DesktopNotificationCenter center{bus};
};

TEST_F(DesktopNotificationCenterTest, WithoutAServiceNothingIsAuthorizedOrShown) {
  EXPECT_FALSE(run(center.requestAuthorization()));
  EXPECT_FALSE(add(payment("a")));
}

TEST_F(DesktopNotificationCenterTest, ShowsRequestsAsTheyAre) {
  const FakeNotificationService service({QStringLiteral("actions")});
  EXPECT_TRUE(run(center.requestAuthorization()));
  EXPECT_TRUE(add(payment("a", "₿ <b>1 & 2</b>")));
  const Notified& shown = service.notified.at(0);
  EXPECT_EQ(shown.application, QStringLiteral("Orvane"));
  EXPECT_EQ(shown.icon, QStringLiteral("com.quorvex.Orvane"));
  EXPECT_EQ(shown.replaces, 0U);
  EXPECT_EQ(shown.summary, QStringLiteral("Payment received"));
  EXPECT_EQ(shown.body, QStringLiteral("₿ <b>1 & 2</b>"));
  EXPECT_EQ(shown.expires, -1);
  EXPECT_EQ(shown.actions, QStringList({clicked, QStringLiteral("Open")}));
  EXPECT_EQ(shown.hints.value(QStringLiteral("desktop-entry")),
            QStringLiteral("com.quorvex.Orvane"));
}

TEST_F(DesktopNotificationCenterTest, EachSoundHasItsNameAndItsUrgency) {
  struct Case {
    NotificationSound sound;
    const char* name;
    uchar urgency;  // services ignore another type
  };
  const FakeNotificationService service;
  for (const auto& [sound, name, urgency] :
       {Case{NotificationSound::standard, "message-new-instant", 1},
        Case{NotificationSound::critical, "dialog-warning", 2}}) {
    NotificationRequest request = payment("a");
    request.sound = sound;
    EXPECT_TRUE(add(request));
    const QVariantMap& hints = service.notified.back().hints;
    EXPECT_EQ(hints.value(QStringLiteral("sound-name")), QLatin1String(name));
    EXPECT_EQ(hints.value(QStringLiteral("urgency")), QVariant::fromValue(urgency)) << name;
    EXPECT_EQ(hints.value(QStringLiteral("urgency")).typeId(), QMetaType::UChar) << name;
  }
}

TEST_F(DesktopNotificationCenterTest, EscapesWhereTheServiceReadsMarkupAndOffersOnlyWhatItCan) {
  const FakeNotificationService service({markup});
  EXPECT_TRUE(add(payment("a", "<b>1</b> & \"2\"")));
  EXPECT_TRUE(add(payment("b")));
  EXPECT_EQ(service.notified[0].body, QStringLiteral("&lt;b&gt;1&lt;/b&gt; &amp; &quot;2&quot;"));
  EXPECT_EQ(service.notified[0].actions, QStringList());
  EXPECT_EQ(service.capabilitiesAsked, 1);
}

TEST_F(DesktopNotificationCenterTest, TheSameIdentifierReplaces) {
  FakeNotificationService service;
  service.nextNumber = 7;
  for (const char* const identifier : {"a", "b", "a", "a"}) {
    EXPECT_TRUE(add(payment(identifier)));
  }
  const auto replaces = [](uint number) { return Field(&Notified::replaces, number); };
  EXPECT_THAT(service.notified, ElementsAre(replaces(0), replaces(0), replaces(7), replaces(7)));
}

TEST_F(DesktopNotificationCenterTest, OneThatIsRefusedDoesNotHarmTheNext) {
  FakeNotificationService service;
  service.refuses = true;
  EXPECT_FALSE(add(payment("a")));
  service.refuses = false;
  EXPECT_TRUE(add(payment("a")));
  EXPECT_EQ(service.notified[0].replaces, 0U);
}

TEST_F(DesktopNotificationCenterTest, ForgetsARestartedService) {
  auto service = std::make_unique<FakeNotificationService>(QStringList{markup});
  EXPECT_TRUE(add(payment("a", "<")));
  service.reset();
  EXPECT_FALSE(add(payment("a", "<")));
  service = std::make_unique<FakeNotificationService>();
  EXPECT_TRUE(add(payment("a", "<")));
  EXPECT_EQ(service->notified[0].replaces, 0U);
  EXPECT_EQ(service->notified[0].body, QStringLiteral("<"));
}

TEST_F(DesktopNotificationCenterTest, RemembersABoundedNumberOfNotifications) {
  const FakeNotificationService service;
  for (int index = 1; index <= 300; ++index) {
    ASSERT_TRUE(add(payment(std::to_string(index))));
  }
  EXPECT_TRUE(add(payment("300")));
  EXPECT_TRUE(add(payment("1")));
  EXPECT_EQ(service.notified[300].replaces, 300U);
  EXPECT_EQ(service.notified[301].replaces, 0U);
}

TEST_F(DesktopNotificationCenterTest, AServiceThatDoesNotAnswerIsGivenUp) {
  DesktopNotificationCenter impatient(bus, 50ms);
  FakeNotificationService service;
  service.answers = false;
  EXPECT_FALSE(run(impatient.add(payment("a"))));
  EXPECT_EQ(service.notified.size(), 1U);
}

TEST_F(DesktopNotificationCenterTest, ACancelledOrDroppedTaskWaitsForNoAnswer) {
  FakeNotificationService service;
  service.answers = false;
  std::optional<bool> cancelled;
  std::optional<bool> dropped;
  {
    TaskScope scope(*executor);
    const TaskHandle handle = scope.spawn(detail::storeResult(center.add(payment("a")), cancelled));
    scope.spawn(detail::storeResult(center.add(payment("b")), dropped));
    letPassUntil([&] { return service.notified.size() == 2; });
    handle.cancel();
    letPass(1ms);
  }
  service.answers = true;
  EXPECT_TRUE(add(payment("c")));
  EXPECT_EQ(cancelled, false);
  EXPECT_EQ(dropped, std::nullopt);
}

TEST_F(DesktopNotificationCenterTest, AClickOnOurNotificationActivates) {
  FakeNotificationService service;
  int activations = 0;
  center.onActivated([&] { ++activations; });
  EXPECT_TRUE(add(payment("a")));
  service.click(2, clicked);
  service.click(1, QStringLiteral("other"));
  service.click(1, clicked);
  letPassUntil([&] { return activations > 0; });
  EXPECT_TRUE(add(payment("b")));  // whatever came with the click has arrived too
  EXPECT_EQ(activations, 1);
}

/// The notifications as a real daemon gets them, which the bus starts when it is needed.
class RealDaemonTest : public DesktopNotificationCenterTest {
 protected:
  RealDaemonTest() { std::ofstream(configuration.toStdString()) << "[global]\nmarkup = full\n"; }

  QDBusMessage askDaemon(const char* method) const {
    return bus.connection().call(
        QDBusMessage::createMethodCall(name, "/org/freedesktop/Notifications",
                                       "org.dunstproject.cmd0", QString::fromLatin1(method)));
  }
  /// Closes what is on the screen; then everything that was shown, the newest first.
  [[nodiscard]] QList<QVariantMap> history() const {
    askDaemon("NotificationCloseAll");
    return qdbus_cast<QList<QVariantMap>>(
        askDaemon("NotificationListHistory").arguments().value(0));
  }
  [[nodiscard]] bool daemonRuns() const {
    return bus.connection().interface()->isServiceRegistered(name);
  }

  const QString name = QStringLiteral("org.freedesktop.Notifications");
  QTemporaryDir folder;
  QString configuration = folder.filePath("dunstrc");
  StartableService service{name, "/usr/bin/dunst -conf " + configuration};
};

TEST_F(RealDaemonTest, IsStartedByTheFirstNotificationAndShowsAndReplaces) {
  EXPECT_TRUE(run(center.requestAuthorization()));
  EXPECT_FALSE(daemonRuns());

  EXPECT_TRUE(add(payment("a", "first")));
  EXPECT_TRUE(add(payment("a", "12,345 sats to <you> & yours")));
  const QList<QVariantMap> shown = history();
  ASSERT_EQ(shown.size(), 1);
  EXPECT_EQ(shown[0].value(QStringLiteral("appname")), QStringLiteral("Orvane"));
  EXPECT_EQ(shown[0].value(QStringLiteral("default_action_name")), clicked);
  EXPECT_EQ(shown[0].value(QStringLiteral("body")),
            QStringLiteral("12,345 sats to &lt;you&gt; &amp; yours"));
}

}  // namespace
}  // namespace orvane::test
