// A Secret Service that is missing, silent, locked, or gone while it asks the user.

#include <QDBusConnectionInterface>
#include <QProcess>
#include <csignal>
#include "platform/eventloop/real_time.h"
#include "platform/keychain/secret_service_keychain.h"
#include "support/run_task.h"
#include "support/session_tools.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using namespace std::string_view_literals;

/// Well below the usual deadline, and enough for a machine with other things to do.
constexpr auto atOnce = 3s;

constexpr auto never = KeychainPrompt::never;
constexpr auto allowed = KeychainPrompt::allowed;

const QString serviceName = "org.freedesktop.secrets";

/// A program of the session that ends with this object.
class Program {
 public:
  Program(const QString& name, const QStringList& arguments, const char* input = "") {
    process_.start(name, arguments);
    process_.write(input);
    process_.closeWriteChannel();
    process_.waitForStarted();
  }
  ~Program() { end(); }
  void end() {
    process_.kill();
    process_.waitForFinished();
  }
  void stop() const { ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP); }

 private:
  QProcess process_;
};

/// The keyring daemon, with its password given at the start.
class Daemon : public Program {
 public:
  Daemon(RealTime& time, SessionBus& bus)
      : Program("gnome-keyring-daemon", {"--foreground", "--unlock", "--components=secrets"},
                "password") {
    EXPECT_TRUE(time.letPassUntil([&] { return time.run(isServicePresent(bus, serviceName)); }));
  }
};

/// The desktop's own dialog for keyring passwords, and a user in front of it.
class Prompter : public Program {
 public:
  Prompter() : Program("/usr/libexec/gcr-prompter", {}) {
    // Who asks for a prompt before the prompter has its name is refused.
    outputOf("gdbus wait --session --timeout 20 org.gnome.keyring.SystemPrompter");
  }
  [[nodiscard]] static std::string window() {
    return outputOf("xdotool search --onlyvisible --class gcr-prompter 2>/dev/null | head -n 1");
  }
  /// Types into the dialog, and Return.
  static void type(const std::string& dialog, const std::string& keys) {
    outputOf("xdotool windowfocus " + dialog.substr(0, dialog.find('\n')) + " key ctrl+a " + keys +
             " 2>/dev/null; xdotool key Return");
  }
};

/// A session in which no service runs until a test starts one.
class ServiceTest : public RealTimeTest {
 protected:
  void expectEveryCallInVain(Keychain& asked, KeychainPrompt prompt) {
    EXPECT_EQ(run(asked.copyMatching(query, prompt)).error(), KeychainMiss::unknown);
    EXPECT_EQ(run(asked.update(query, "x", prompt)), KeychainStatus::failed);
    EXPECT_EQ(run(asked.add(fresh, "x", prompt)), KeychainStatus::failed);
    EXPECT_EQ(run(asked.remove(query, prompt)), KeychainStatus::failed);
  }

  SessionBus bus{*executor};
  SecretServiceKeychain keychain{bus};
  KeychainQuery query{.service = "keyring", .account = "token"};
  KeychainQuery fresh{.service = "keyring", .account = "fresh"};
};

TEST_F(ServiceTest, WithoutAServiceEveryCallEndsAtOnce) {
  const auto time = timeOf([this] { expectEveryCallInVain(keychain, allowed); });
  EXPECT_LT(time, atOnce);
}

TEST_F(ServiceTest, AServiceThatNeverAnswersIsWaitedForNoLongerThanTheDeadline) {
  const Daemon service(*this, bus);
  service.stop();
  SecretServiceKeychain impatient(bus, 100ms);
  const auto time = timeOf([&] { expectEveryCallInVain(impatient, never); });
  EXPECT_GE(time, 400ms) << "four calls that wait";
  EXPECT_LT(time, atOnce);
}

TEST_F(ServiceTest, AServiceMayBeRestarted) {
  int arrivals = 0;
  const Registration observer = keychain.observeArrival([&arrivals] { ++arrivals; });
  std::optional<Daemon> daemon(std::in_place, *this, bus);
  EXPECT_EQ(run(keychain.add(query, "secret", never)), KeychainStatus::success);
  daemon.emplace(*this, bus);
  EXPECT_TRUE(run(keychain.copyMatching(query, never)));
  EXPECT_EQ(arrivals, 2);
}

/// A keyring that lists nothing while it is locked.
class HidingKeyring : public Program {
 public:
  HidingKeyring(RealTime& time, SessionBus& bus, const char* answerOfUser)
      : Program(ORVANE_HIDING_KEYRING, {answerOfUser}) {
    EXPECT_TRUE(time.letPassUntil([&] { return time.run(isServicePresent(bus, serviceName)); }));
  }
};

TEST_F(ServiceTest, WhatALockedKeyringHidesIsUnlockedAndSearchedAgain) {
  for (const char* call : {"read", "update", "remove"}) {
    SCOPED_TRACE(call);
    const HidingKeyring service(*this, bus, "open");
    EXPECT_EQ(run(keychain.copyMatching(query, never)).error(), KeychainMiss::unknown);
    EXPECT_EQ(run(keychain.update(query, "x", never)), KeychainStatus::failed);
    if (call == "read"sv) { EXPECT_EQ(run(keychain.copyMatching(query, allowed))->data, "secret"); }
    if (call == "update"sv) {
      EXPECT_EQ(run(keychain.update(query, "new", allowed)), KeychainStatus::success);
      EXPECT_EQ(run(keychain.copyMatching(query, never))->data, "new");
    }
    EXPECT_EQ(run(keychain.remove(query, allowed)), KeychainStatus::success);
    EXPECT_EQ(run(keychain.copyMatching(query, never)).error(), KeychainMiss::absent);
    EXPECT_EQ(run(keychain.add(query, "again", never)), KeychainStatus::success);
  }
}

TEST_F(ServiceTest, WhatStaysHiddenIsUnknownAndNothingIsWrittenBesideIt) {
  const HidingKeyring service(*this, bus, "refuse");
  expectEveryCallInVain(keychain, allowed);
}

/// A keyring with one item, locked.
class PromptTest : public ServiceTest {
 protected:
  PromptTest() {
    storeWithSecretTool("service keyring account token synchronizable true", "secret");
    lock();
  }
  static void lock() {
    outputOf(
        "dbus-send --session --print-reply --dest=org.freedesktop.secrets /org/freedesktop/secrets "
        "org.freedesktop.Secret.Service.Lock "
        "array:objpath:/org/freedesktop/secrets/collection/login");
  }
  /// Begins a call that may prompt and waits for the dialog.
  template <class T>
  void begin(Task<T> task, std::optional<T>& result) {
    call = scope.spawn(detail::storeResult(std::move(task), result));
    ASSERT_TRUE(letPassUntil([] { return !Prompter::window().empty(); }));
  }
  /// The status of a write once the user has answered the dialog with `keys`.
  std::optional<KeychainStatus> statusOf(Task<KeychainStatus> write, const std::string& keys) {
    std::optional<KeychainStatus> status;
    begin(std::move(write), status);
    answer(keys);
    return status;
  }
  /// Types until the dialog is gone. It may not hear the first, and a second while it still checks
  /// the first would run into what it asks next: so not at once.
  void answer(const std::string& keys) {
    Instant next = executor->now();
    EXPECT_TRUE(letPassUntil([&] {
      const std::string dialog = Prompter::window();
      if (!dialog.empty() && executor->now() >= next) {
        Prompter::type(dialog, keys);
        next = executor->now() + 3s;
      }
      return dialog.empty();
    }));
    EXPECT_TRUE(letPassUntil([this] { return call.finished(); }));
  }

  Daemon daemon{*this, bus};
  Prompter prompter;
  std::optional<KeychainReading<KeychainItem>> item;
  TaskHandle call;
  TaskScope scope{*executor};
};

TEST_F(PromptTest, WithoutAPrompterCallsThatMayAskAreInVain) {
  prompter.end();
  expectEveryCallInVain(keychain, allowed);
}

TEST_F(PromptTest, CallsThatMayNotAskAreInVainAtOnceAndAskNobody) {
  const auto time = timeOf([this] { expectEveryCallInVain(keychain, never); });
  EXPECT_LT(time, atOnce);
  letPass(300ms);  // a dialog would be there by now
  EXPECT_EQ(Prompter::window(), "");
}

TEST_F(PromptTest, CancellingEndsTheReadAtOnceAndHarmsNoService) {
  begin(keychain.copyMatching(query, allowed), item);
  call.cancel();
  letPass(50ms);
  EXPECT_TRUE(call.finished());
  EXPECT_FALSE(item.value());
  answer("key Escape");
  EXPECT_TRUE(run(isServicePresent(bus, serviceName)));
}

TEST_F(PromptTest, TheReadWaitsForTheUserLongerThanForTheServiceAndGivesTheItem) {
  SecretServiceKeychain impatient(bus, 300ms);
  begin(impatient.copyMatching(query, allowed), item);
  letPass(400ms);
  EXPECT_FALSE(call.finished());
  answer("type password");
  ASSERT_TRUE(item.value());
  EXPECT_EQ(item.value()->data, "secret");
}

TEST_F(PromptTest, AddingAsksForTheCollectionAndChangingForTheItems) {
  const auto unlocking = [this](Task<KeychainStatus> write) {
    lock();
    return statusOf(std::move(write), "type password");
  };
  EXPECT_EQ(unlocking(keychain.add(fresh, "x", allowed)), KeychainStatus::success);
  EXPECT_EQ(unlocking(keychain.update(fresh, "y", allowed)), KeychainStatus::success);
  EXPECT_EQ(unlocking(keychain.remove(fresh, allowed)), KeychainStatus::success);
  EXPECT_EQ(run(keychain.remove(fresh, never)), KeychainStatus::itemNotFound);
}

TEST_F(PromptTest, ARefusedWriteHasFailedAndIsNotAskedAgain) {
  EXPECT_EQ(statusOf(keychain.update(query, "x", allowed), "key Escape"), KeychainStatus::failed);
  letPass(300ms);
  EXPECT_EQ(Prompter::window(), "");
}

TEST_F(PromptTest, AServiceThatEndsWhileItAsksHoldsNobodyUp) {
  begin(keychain.copyMatching(query, allowed), item);
  daemon.end();
  EXPECT_TRUE(letPassUntil([this] { return call.finished(); }));
  EXPECT_FALSE(item.value());
}

// It takes the session's bus away, so it comes last.
TEST_F(PromptTest, TheEndOfTheBusIsNotTheProgramsEnd) {
  EXPECT_EQ(run(keychain.remove(fresh, never)), KeychainStatus::itemNotFound);
  const auto daemonOfBus = bus.connection().interface()->servicePid("org.freedesktop.DBus");
  ::kill(static_cast<pid_t>(daemonOfBus.value()), SIGKILL);
  EXPECT_TRUE(letPassUntil([this] { return !bus.isOpen(); }));
  expectEveryCallInVain(keychain, allowed);
}

}}  // namespace orvane::test
