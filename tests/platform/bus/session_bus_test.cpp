#include "platform/bus/session_bus.h"

#include <gmock/gmock.h>

#include "platform/tray/desktop_session.h"
#include "support/run_task.h"
#include "support/session_tools.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

const QString serviceName = QStringLiteral("com.example.Service");

/// Somebody else on the bus who owns a name.
class Owner {
 public:
  explicit Owner(QString name) : name_(std::move(name)) { connection_.registerService(name_); }
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  ~Owner() { QDBusConnection::disconnectFromBus(name_); }
  void sendSignal() {
    connection_.send(QDBusMessage::createSignal("/path", "com.example.Interface", "Signal"));
  }

 private:
  QString name_;
  QDBusConnection connection_ = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_);
};

/// Time is virtual, the bus is real and can be taken away.
class SessionBusTest : public testing::Test {
 protected:
  bool isPresent(const QString& name) {
    std::optional<bool> present;
    TaskScope scope(executor);
    scope.spawn(detail::storeResult(isServicePresent(bus, name), present));
    EXPECT_TRUE(letPassUntil([&] { return present.has_value(); }));
    return present.value_or(false);
  }
  template <class Condition>
  bool letPassUntil(Condition condition) {
    return QTest::qWaitFor([&] {
      executor.runUntilIdle();
      return condition();
    });
  }
  void loseBus() {
    privateBus().stop();
    ASSERT_TRUE(letPassUntil([this] { return !bus.isOpen(); }));
  }

  VirtualExecutor executor;
  SessionBus bus{executor};
};

TEST_F(SessionBusTest, AServiceIsPresentThatRunsOrThatTheBusCanStart) {
  const Owner running(serviceName);
  const StartableService startable("com.example.Startable", "true");
  EXPECT_TRUE(isPresent(serviceName));
  EXPECT_TRUE(isPresent(QStringLiteral("com.example.Startable")));
  EXPECT_FALSE(isPresent(QStringLiteral("com.example.Missing")));
}

TEST_F(SessionBusTest, AMissingBusHasNoServicesAndIsLookedForAtGrowingIntervals) {
  loseBus();
  EXPECT_FALSE(isPresent(serviceName));
  executor.advance(2s);
  privateBus().start();
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
  std::optional<Owner> owner(serviceName);
  ASSERT_TRUE(letPassUntil([&] { return name.isOwned(); }));
  loseBus();
  privateBus().start();
  EXPECT_TRUE(name.isKnown());
  owner.emplace(serviceName);
  executor.advance(2s);
  ASSERT_TRUE(letPassUntil([&] { return name.isOwned(); }));
  owner.reset();
  ASSERT_TRUE(letPassUntil([&] { return !name.isOwned(); }));
  EXPECT_THAT(told, ElementsAre(false, true, false, true, false));
}

TEST_F(SessionBusTest, ASignalIsHeardAgainWhenTheBusIsBack) {
  int heard = 0;
  const BusSignal signal(bus, "/path", "com.example.Interface", "Signal",
                         [&](const QDBusMessage&) { ++heard; });
  loseBus();
  privateBus().start();
  executor.advance(2s);
  Owner(serviceName).sendSignal();
  EXPECT_TRUE(letPassUntil([&] { return heard == 1; }));
}

}  // namespace
}  // namespace orvane::test
