#include "platform/notifications/desktop_notification_center.h"

#include <chrono>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bus_fixture.h"
#include "fake_notification_service.h"
#include "support/run_task.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

const QString markup = QStringLiteral("body-markup");

class DesktopNotificationCenterTest : public RealTimeTest {
 protected:
  bool add(NotificationRequest request) { return run(center.add(std::move(request))); }

  SessionBus bus{*executor};
  DesktopNotificationCenter center{bus};
};

TEST_F(DesktopNotificationCenterTest, WithoutAServiceNothingIsAuthorizedOrShown) {
  EXPECT_FALSE(run(center.requestAuthorization()));
  EXPECT_FALSE(run(center.add(paymentRequest("a"))));
}

TEST_F(DesktopNotificationCenterTest, ShowsRequestsAsTheyAre) {
  const FakeNotificationService service({QStringLiteral("actions")});
  EXPECT_TRUE(run(center.requestAuthorization()));
  NotificationRequest critical = paymentRequest("b");
  critical.sound = NotificationSound::critical;
  EXPECT_TRUE(add(paymentRequest("a", "₿ <b>1 & 2</b>")));
  EXPECT_TRUE(add(critical));
  const Notified& shown = service.notified.at(0);
  EXPECT_EQ(shown.application, QStringLiteral("Orvane"));
  EXPECT_EQ(shown.icon, QStringLiteral("com.quorvex.Orvane"));
  EXPECT_EQ(shown.replaces, 0U);
  EXPECT_EQ(shown.summary, QStringLiteral("Payment received"));
  EXPECT_EQ(shown.body, QStringLiteral("₿ <b>1 & 2</b>"));
  EXPECT_EQ(shown.expires, -1);
  EXPECT_EQ(shown.actions, QStringList({QStringLiteral("default"), QStringLiteral("Open")}));
  const auto hint = [&](std::size_t index, const char* name) {
    return service.notified.at(index).hints.value(QString::fromLatin1(name));
  };
  EXPECT_EQ(hint(0, "desktop-entry"), QStringLiteral("com.quorvex.Orvane"));
  EXPECT_EQ(hint(0, "sound-name"), QStringLiteral("message-new-instant"));
  EXPECT_EQ(hint(1, "sound-name"), QStringLiteral("dialog-warning"));
  EXPECT_EQ(hint(1, "urgency"), QVariant::fromValue<uchar>(2));
  EXPECT_EQ(hint(0, "urgency").typeId(), QMetaType::UChar);  // services ignore another type
}

TEST_F(DesktopNotificationCenterTest, EscapesWhereTheServiceReadsMarkupAndOffersOnlyWhatItCan) {
  const FakeNotificationService service({markup});
  EXPECT_TRUE(add(paymentRequest("a", "<b>1</b> & \"2\"")));
  EXPECT_TRUE(add(paymentRequest("b", "plain")));
  EXPECT_EQ(service.notified[0].body, QStringLiteral("&lt;b&gt;1&lt;/b&gt; &amp; &quot;2&quot;"));
  EXPECT_EQ(service.notified[0].actions, QStringList());
  EXPECT_EQ(service.capabilitiesAsked, 1);
}

TEST_F(DesktopNotificationCenterTest, TheSameIdentifierReplaces) {
  const FakeNotificationService service({}, 7);
  for (const char* const identifier : {"a", "b", "a", "a"}) {
    EXPECT_TRUE(add(paymentRequest(identifier)));
  }
  const auto replaces = [](uint number) { return testing::Field(&Notified::replaces, number); };
  EXPECT_THAT(service.notified,
              testing::ElementsAre(replaces(0), replaces(0), replaces(7), replaces(7)));
}

TEST_F(DesktopNotificationCenterTest, OneThatIsRefusedDoesNotHarmTheNext) {
  FakeNotificationService service;
  service.refuses = true;
  EXPECT_FALSE(add(paymentRequest("a")));
  service.refuses = false;
  EXPECT_TRUE(add(paymentRequest("a")));
  EXPECT_EQ(service.notified[0].replaces, 0U);
}

TEST_F(DesktopNotificationCenterTest, ForgetsARestartedService) {
  auto service = std::make_unique<FakeNotificationService>(QStringList{markup});
  EXPECT_TRUE(add(paymentRequest("a", "<")));
  service.reset();
  EXPECT_FALSE(add(paymentRequest("a", "<")));
  service = std::make_unique<FakeNotificationService>();
  EXPECT_TRUE(add(paymentRequest("a", "<")));
  EXPECT_EQ(service->notified[0].replaces, 0U);
  EXPECT_EQ(service->notified[0].body, QStringLiteral("<"));
}

TEST_F(DesktopNotificationCenterTest, RemembersABoundedNumberOfNotifications) {
  const FakeNotificationService service;
  for (int index = 0; index < 300; ++index) {
    ASSERT_TRUE(add(paymentRequest(std::to_string(index))));
  }
  EXPECT_TRUE(add(paymentRequest("299")));
  EXPECT_TRUE(add(paymentRequest("0")));
  EXPECT_EQ(service.notified[300].replaces, service.notified[299].number);
  EXPECT_EQ(service.notified[301].replaces, 0U);
}

TEST_F(DesktopNotificationCenterTest, AServiceThatDoesNotAnswerIsGivenUp) {
  DesktopNotificationCenter impatient(bus, 50ms);
  FakeNotificationService service;
  service.answers = false;
  EXPECT_FALSE(run(impatient.add(paymentRequest("a"))));
  EXPECT_EQ(service.notified.size(), 1U);
}

TEST_F(DesktopNotificationCenterTest, ACancelledOrDroppedTaskWaitsForNoAnswer) {
  FakeNotificationService service;
  service.answers = false;
  std::optional<bool> cancelled;
  std::optional<bool> dropped;
  {
    TaskScope scope(*executor);
    const TaskHandle handle =
        scope.spawn(detail::storeResult(center.add(paymentRequest("a")), cancelled));
    scope.spawn(detail::storeResult(center.add(paymentRequest("b")), dropped));
    letPassUntil([&] { return service.notified.size() == 2; });
    handle.cancel();
    letPass(1ms);
  }
  service.answers = true;
  EXPECT_TRUE(add(paymentRequest("c")));
  EXPECT_EQ(cancelled, false);
  EXPECT_EQ(dropped, std::nullopt);
}

TEST_F(DesktopNotificationCenterTest, AClickOnOurNotificationActivates) {
  FakeNotificationService service({}, 7);
  int activations = 0;
  center.onActivated([&] { ++activations; });
  EXPECT_TRUE(add(paymentRequest("a")));
  service.click(8, QStringLiteral("default"));
  service.click(7, QStringLiteral("other"));
  service.click(7, QStringLiteral("default"));
  letPassUntil([&] { return activations > 0; });
  EXPECT_TRUE(add(paymentRequest("b")));  // whatever came with the click has arrived too
  EXPECT_EQ(activations, 1);
}

}  // namespace
}  // namespace orvane::test
