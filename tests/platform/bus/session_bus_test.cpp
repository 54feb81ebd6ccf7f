#include "platform/bus/session_bus.h"
#include <gmock/gmock.h>
#include "support/desktop_session.h"
#include "support/run_task.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;

const QString serviceName = "com.example.Service";

/// Somebody else on the bus who owns that name.
struct Owner {
  Owner() { connection.registerService(serviceName); }
  ~Owner() { QDBusConnection::disconnectFromBus("owner"); }

  QDBusConnection connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "owner");
};

/// Time is virtual, the bus is real and can be taken away.
class SessionBusTest : public testing::Test {
 protected:
  bool letPassUntil(const std::function<bool()>& condition) {
    return QTest::qWaitFor([&] {
      executor.runUntilIdle();
      return condition();
    });
  }
  void loseBus() {
    desktopSession->stopBus();
    ASSERT_TRUE(letPassUntil([this] { return !bus.isOpen(); }));
  }

  VirtualExecutor executor;
  SessionBus bus{executor};
};

TEST_F(SessionBusTest, AMissingBusHasNoServicesAndIsLookedForAtGrowingIntervals) {
  loseBus();
  std::optional<bool> isPresent;
  TaskScope scope(executor);
  scope.spawn(detail::storeResult(isServicePresent(bus, serviceName), isPresent));
  EXPECT_TRUE(letPassUntil([&] { return isPresent == false; }));
  executor.advance(2s);
  desktopSession->startBus();
  executor.advance(3999ms);
  EXPECT_FALSE(bus.isOpen());
  executor.advance(1ms);
  EXPECT_TRUE(bus.isOpen());
}

TEST_F(SessionBusTest, TheOwnerOfANameIsFollowedOverALossOfTheBus) {
  std::vector<bool> told;
  const BusName name(bus, serviceName, [&](bool isOwned) { told.push_back(isOwned); });
  EXPECT_FALSE(name.isKnown());
  ASSERT_TRUE(letPassUntil([&] { return name.isKnown(); }));
  std::optional<Owner> owner(std::in_place);
  ASSERT_TRUE(letPassUntil([&] { return name.isOwned(); }));
  loseBus();
  desktopSession->startBus();
  EXPECT_TRUE(name.isKnown());
  owner.emplace();
  executor.advance(2s);
  ASSERT_TRUE(letPassUntil([&] { return name.isOwned(); }));
  owner.reset();
  ASSERT_TRUE(letPassUntil([&] { return !name.isOwned(); }));
  EXPECT_THAT(told, testing::ElementsAre(false, true, false, true, false));
}

TEST_F(SessionBusTest, ASignalIsHeardAgainWhenTheBusIsBack) {
  int heard = 0;
  const BusSignal signal(bus, "/path", "com.example.Interface", "Signal",
                         [&](const QDBusMessage&) { ++heard; });
  loseBus();
  desktopSession->startBus();
  executor.advance(2s);
  Owner().connection.send(QDBusMessage::createSignal("/path", "com.example.Interface", "Signal"));
  EXPECT_TRUE(letPassUntil([&] { return heard == 1; }));
}

}}  // namespace orvane::test
