#include "platform/notifications/desktop_notification_center.h"
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <fstream>
#include <gmock/gmock.h>
#include "fake_notification_service.h"
#include "platform/eventloop/real_time.h"
#include "support/run_task.h"
#include "support/temporary_folder.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Field;

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
  const FakeNotificationService service({"actions"});
  EXPECT_TRUE(run(center.requestAuthorization()));
  EXPECT_TRUE(add(payment("a", "₿ <b>1 & 2</b>")));
  const Notified& shown = service.notified.at(0);
  EXPECT_EQ(shown.application, "Orvane");
  EXPECT_EQ(shown.icon, "com.quorvex.Orvane");
  EXPECT_EQ(shown.replaces, 0U);
  EXPECT_EQ(shown.summary, "Payment received");
  EXPECT_EQ(shown.body, "₿ <b>1 & 2</b>");
  EXPECT_EQ(shown.expires, -1);
  EXPECT_EQ(shown.actions, (QStringList{"default", "Open"}));
  EXPECT_EQ(shown.hints.value("desktop-entry"), "com.quorvex.Orvane");
}

TEST_F(DesktopNotificationCenterTest, EachSoundHasItsNameAndItsUrgency) {
  const FakeNotificationService service;
  for (const auto& [sound, name, urgency] :
       {std::tuple(NotificationSound::standard, "message-new-instant", uchar{1}),
        std::tuple(NotificationSound::critical, "dialog-warning", uchar{2})}) {
    NotificationRequest request = payment("a");
    request.sound = sound;
    EXPECT_TRUE(add(request));
    const QVariantMap& hints = service.notified.back().hints;
    EXPECT_EQ(hints.value("sound-name"), name);
    EXPECT_EQ(hints.value("urgency"), QVariant::fromValue(urgency)) << name;
    EXPECT_EQ(hints.value("urgency").typeId(), QMetaType::UChar) << "services ignore another type";
  }
}

TEST_F(DesktopNotificationCenterTest, EscapesWhereTheServiceReadsMarkupAndOffersOnlyWhatItCan) {
  const FakeNotificationService service({"body-markup"});
  EXPECT_TRUE(add(payment("a", "<b>1</b> & \"2\"")));
  EXPECT_EQ(service.notified[0].body, "&lt;b&gt;1&lt;/b&gt; &amp; &quot;2&quot;");
  EXPECT_EQ(service.notified[0].actions, QStringList());
}

TEST_F(DesktopNotificationCenterTest, TheSameIdentifierReplaces) {
  const FakeNotificationService service;
  for (const char* const identifier : {"a", "b", "b", "b"}) {
    EXPECT_TRUE(add(payment(identifier)));
  }
  const auto replaces = [](uint number) { return Field(&Notified::replaces, number); };
  EXPECT_THAT(service.notified, ElementsAre(replaces(0), replaces(0), replaces(2), replaces(2)));
}

TEST_F(DesktopNotificationCenterTest, ForgetsARestartedService) {
  std::optional<FakeNotificationService> service(QStringList("body-markup"));
  EXPECT_TRUE(add(payment("a", "<")));
  service.reset();
  EXPECT_FALSE(add(payment("a", "<")));
  service.emplace();
  EXPECT_TRUE(add(payment("a", "<")));
  EXPECT_EQ(service->notified[0].replaces, 0U);
  EXPECT_EQ(service->notified[0].body, "<");
}

TEST_F(DesktopNotificationCenterTest, AServiceThatDoesNotAnswerIsGivenUp) {
  DesktopNotificationCenter impatient(bus, 50ms);
  FakeNotificationService service;
  service.answers = false;
  EXPECT_FALSE(run(impatient.add(payment("a"))));
}

TEST_F(DesktopNotificationCenterTest, ACancelledRequestWaitsForNoAnswer) {
  FakeNotificationService service;
  service.answers = false;
  std::optional<bool> isShown;
  TaskScope scope(*executor);
  const TaskHandle handle = scope.spawn(detail::storeResult(center.add(payment("a")), isShown));
  letPassUntil([&] { return !service.notified.empty(); });
  handle.cancel();
  letPass(1ms);
  EXPECT_EQ(isShown, false);
}

TEST_F(DesktopNotificationCenterTest, AClickOnOurNotificationActivates) {
  FakeNotificationService service;
  std::vector<std::string> tokens;
  center.onActivated([&](const std::string& token) { tokens.push_back(token); });
  EXPECT_TRUE(add(payment("a")));
  service.click(2, "default", "another program's");
  service.click(1, "other", "unused");
  service.click(1, "default");
  service.click(1, "default", "token");
  letPassUntil([&] { return tokens.size() > 1; });
  EXPECT_TRUE(add(payment("b")));  // whatever came with the click has arrived too
  EXPECT_EQ(tokens, (std::vector<std::string>{"", "token"}));
}

TEST_F(DesktopNotificationCenterTest, ARealDaemonIsStartedWhenItIsNeededAndShowsAndReplaces) {
  const QString name = "org.freedesktop.Notifications";
  const TemporaryFolder folder;
  const std::string configuration = folder.path() / "dunstrc";
  std::ofstream(configuration) << "[global]\nmarkup = full\n";
  std::ofstream(std::getenv("XDG_DATA_HOME") + std::string("/dbus-1/services/dunst.service"))
      << "[D-BUS Service]\nName=" << name.toStdString() << "\nExec=/usr/bin/env DISPLAY="
      << std::getenv("DISPLAY")  // the bus of a test session is older than its display
      << " /usr/bin/dunst -conf " << configuration << '\n';
  bus.connection().call(callOfBusItself("ReloadConfig"));
  EXPECT_TRUE(run(center.requestAuthorization()));
  EXPECT_FALSE(bus.connection().interface()->isServiceRegistered(name));

  EXPECT_TRUE(add(payment("a", "first")));
  EXPECT_TRUE(add(payment("a", "12,345 sats to <you> & yours")));
  const auto ask = [&](const char* method) {
    return bus.connection().call(QDBusMessage::createMethodCall(
        name, "/org/freedesktop/Notifications", "org.dunstproject.cmd0", method));
  };
  ask("NotificationCloseAll");  // what was closed is history
  const auto shown =
      qdbus_cast<QList<QVariantMap>>(ask("NotificationListHistory").arguments().value(0));
  ASSERT_EQ(shown.size(), 1);
  EXPECT_EQ(shown[0].value("appname"), "Orvane");
  EXPECT_EQ(shown[0].value("default_action_name"), "default");
  EXPECT_EQ(shown[0].value("body"), "12,345 sats to &lt;you&gt; &amp; yours");
}

}}  // namespace orvane::test
