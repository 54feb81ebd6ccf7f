#include <QProcess>
#include <csignal>

#include "platform/eventloop/real_time.h"
#include "platform/keychain/secret_service_keychain.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

/// Well below the usual deadline, and enough for a machine with other things to do.
constexpr auto atOnce = 3s;

/// A session in which no service runs until a test starts one.
class ServicePresenceTest : public RealTimeTest {
 protected:
  void expectEveryCallInVain(Keychain& asked) {
    EXPECT_FALSE(run(asked.copyMatching(query, KeychainPrompt::never)));
    EXPECT_FALSE(run(asked.copyMatching(query, KeychainPrompt::allowed)));
    EXPECT_EQ(run(asked.update(query, "x", KeychainPrompt::allowed)), KeychainStatus::failed);
    EXPECT_EQ(run(asked.add(query, "x", KeychainPrompt::allowed)), KeychainStatus::failed);
    EXPECT_EQ(run(asked.remove(query, KeychainPrompt::never)), KeychainStatus::failed);
  }

  SessionBus bus{*executor};
  SecretServiceKeychain keychain{bus};
  KeychainQuery query{.service = "presence", .account = "token"};
};

/// The keyring daemon, with its password given at the start.
class Daemon {
 public:
  Daemon(RealTime& time, SessionBus& bus) {
    process_.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    process_.start("gnome-keyring-daemon", {"--foreground", "--unlock", "--components=secrets"});
    process_.write("password");
    process_.closeWriteChannel();
    process_.waitForStarted();
    isThere_ = time.letPassUntil(
        [&] { return time.run(isServicePresent(bus, "org.freedesktop.secrets")); });
  }
  ~Daemon() {
    process_.kill();
    process_.waitForFinished();
  }
  /// From now on it takes calls and answers none.
  void fallSilent() const { ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP); }
  [[nodiscard]] bool isThere() const { return isThere_; }

 private:
  QProcess process_;
  bool isThere_ = false;
};

TEST_F(ServicePresenceTest, WithoutAServiceEveryCallEndsAtOnce) {
  const auto time = timeOf([this] { expectEveryCallInVain(keychain); });
  EXPECT_LT(time, atOnce);
}

TEST_F(ServicePresenceTest, AServiceThatNeverAnswersIsWaitedForNoLongerThanTheDeadline) {
  const Daemon service(*this, bus);
  ASSERT_TRUE(service.isThere());
  service.fallSilent();
  SecretServiceKeychain impatient(bus, 100ms);
  const auto time = timeOf([&] { expectEveryCallInVain(impatient); });
  EXPECT_GE(time, 500ms) << "five calls that wait";
  EXPECT_LT(time, atOnce);
}

TEST_F(ServicePresenceTest, DestroyedWhileTheServiceIsSilentACallLeavesNothingBehind) {
  const Daemon service(*this, bus);
  ASSERT_TRUE(service.isThere());
  service.fallSilent();
  std::optional<std::optional<KeychainItem>> item;
  QEventLoop loop;
  {
    TaskScope scope(*executor);
    scope.spawn(
        detail::keepResult(keychain.copyMatching(query, KeychainPrompt::never), item, loop));
    letPass(20ms);
  }
  letPass(20ms);
  EXPECT_FALSE(item);
}

TEST_F(ServicePresenceTest, AServiceMayComeGoAndComeBack) {
  auto daemon = std::make_unique<Daemon>(*this, bus);
  ASSERT_TRUE(daemon->isThere());
  EXPECT_EQ(run(keychain.add(query, "secret", KeychainPrompt::never)), KeychainStatus::success);
  EXPECT_TRUE(run(keychain.copyMatching(query, KeychainPrompt::never)));

  daemon.reset();
  const auto time = timeOf([this] { expectEveryCallInVain(keychain); });
  EXPECT_LT(time, atOnce);

  daemon = std::make_unique<Daemon>(*this, bus);
  ASSERT_TRUE(daemon->isThere());
  const auto item = run(keychain.copyMatching(query, KeychainPrompt::never));
  ASSERT_TRUE(item);
  EXPECT_EQ(item->data, "secret");
  EXPECT_EQ(run(keychain.update(query, "new", KeychainPrompt::never)), KeychainStatus::success);
  EXPECT_EQ(run(keychain.copyMatching(query, KeychainPrompt::never))->data, "new");
}

TEST(ForeignLoopTest, WhereNobodyServesGLibEveryCallEndsAtTheDeadline) {
  ::setenv("QT_NO_GLIB", "1", 1);
  {
    RealTime time;
    SessionBus bus(*time.executor);
    const Daemon service(time, bus);
    ASSERT_TRUE(service.isThere());
    SecretServiceKeychain keychain(bus, 100ms);
    const KeychainQuery query{.service = "presence", .account = "token"};
    EXPECT_FALSE(time.run(keychain.copyMatching(query, KeychainPrompt::never)));
    EXPECT_EQ(time.run(keychain.add(query, "x", KeychainPrompt::never)), KeychainStatus::failed);
  }
  ::unsetenv("QT_NO_GLIB");
}

}  // namespace
}  // namespace orvane::test
