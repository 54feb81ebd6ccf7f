#include <QProcess>

#include "platform/eventloop/real_time.h"
#include "platform/keychain/secret_service_keychain.h"
#include "support/session_tools.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

/// Well below the usual deadline, and enough for a machine with other things to do.
constexpr auto atOnce = 3s;

/// A keyring with one item, locked.
class LockedTest : public RealTimeTest {
 protected:
  LockedTest() {
    const std::string attributes = "service locked account token synchronizable true";
    if (countWithSecretTool(attributes) == 0) { storeWithSecretTool(attributes, "secret"); }
    lock();
  }
  static void lock() {
    outputOf(
        "gdbus call --session --dest org.freedesktop.secrets "
        "--object-path /org/freedesktop/secrets --method org.freedesktop.Secret.Service.Lock "
        "\"['/org/freedesktop/secrets/collection/login']\"");
  }

  SessionBus bus{*executor};
  SecretServiceKeychain keychain{bus};
  KeychainQuery query{.service = "locked", .account = "token"};
};

/// The desktop's own dialog for keyring passwords, and a user in front of it.
class Prompter {
 public:
  Prompter() {
    process_.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    process_.start("/usr/libexec/gcr-prompter", QStringList());
    process_.waitForStarted();
    // Who asks for a prompt before the prompter has its name is refused.
    outputOf("gdbus wait --session --timeout 20 org.gnome.keyring.SystemPrompter");
  }
  ~Prompter() {
    process_.kill();
    process_.waitForFinished();
  }
  [[nodiscard]] static std::string window() {
    const std::string ids =
        outputOf("xdotool search --onlyvisible --class gcr-prompter 2>/dev/null");
    return ids.substr(0, ids.find('\n'));
  }
  /// Types into the dialog, and Return, unless it is gone; it may not listen at first.
  static bool isClosedWith(const std::string& keys) {
    const std::string dialog = window();
    if (!dialog.empty()) {
      outputOf("xdotool windowfocus " + dialog + " key ctrl+a " + keys +
               " 2>/dev/null; xdotool key Return");
    }
    return dialog.empty();
  }

 private:
  QProcess process_;
};

TEST_F(LockedTest, CallsThatMayNotAskAreInVainAtOnceAndAskNobody) {
  const Prompter prompter;
  const KeychainQuery fresh{.service = "locked", .account = "fresh"};
  const auto time = timeOf([&] {
    EXPECT_FALSE(run(keychain.copyMatching(query, KeychainPrompt::never)));
    EXPECT_EQ(run(keychain.update(query, "x", KeychainPrompt::never)), KeychainStatus::failed);
    EXPECT_EQ(run(keychain.remove(query, KeychainPrompt::never)), KeychainStatus::failed);
    EXPECT_EQ(run(keychain.add(fresh, "x", KeychainPrompt::never)), KeychainStatus::failed);
  });
  EXPECT_LT(time, atOnce);
  letPass(300ms);  // a dialog would be there by now
  EXPECT_EQ(Prompter::window(), "");
}

TEST_F(LockedTest, WithoutAPrompterPromptingCallsAreInVain) {
  EXPECT_FALSE(run(keychain.copyMatching(query, KeychainPrompt::allowed)));
  EXPECT_EQ(run(keychain.update(query, "x", KeychainPrompt::allowed)), KeychainStatus::failed);
}

class PromptTest : public LockedTest {
 protected:
  /// Begins a call that may prompt and waits for the dialog.
  template <class T>
  void begin(Task<T> task, std::optional<T>& result) {
    call = scope.spawn(detail::keepResult(std::move(task), result, ended));
    ASSERT_TRUE(letPassUntil([] { return !Prompter::window().empty(); }));
  }
  void beginToRead() { begin(keychain.copyMatching(query, KeychainPrompt::allowed), item); }
  /// The status of a write once the user has answered the dialog with `keys`.
  std::optional<KeychainStatus> statusOf(Task<KeychainStatus> write, const std::string& keys) {
    begin(std::move(write), status);
    answer(keys);
    return status;
  }
  void answer(const std::string& keys) {
    EXPECT_TRUE(letPassUntil([&keys] { return Prompter::isClosedWith(keys); }));
    EXPECT_TRUE(letPassUntil([this] { return call.finished(); }));
  }

  Prompter prompter;
  std::optional<std::optional<KeychainItem>> item;
  std::optional<KeychainStatus> status;
  QEventLoop ended;
  TaskHandle call;
  TaskScope scope{*executor};
};

TEST_F(PromptTest, CancellingEndsTheReadAtOnceAndHarmsNoService) {
  beginToRead();
  call.cancel();
  letPass(50ms);
  EXPECT_TRUE(call.finished());
  EXPECT_FALSE(item.value());
  answer("key Escape");
  EXPECT_TRUE(run(isServicePresent(bus, "org.freedesktop.secrets")));
}

TEST_F(PromptTest, TheReadWaitsForTheUserLongerThanForTheServiceAndGivesTheItem) {
  SecretServiceKeychain impatient(bus, 300ms);
  begin(impatient.copyMatching(query, KeychainPrompt::allowed), item);
  letPass(400ms);
  EXPECT_FALSE(call.finished());
  answer("type password");
  ASSERT_TRUE(item.value());
  EXPECT_EQ(item.value()->data, "secret");
}

TEST_F(PromptTest, AddingAsksForTheCollectionAndChangingForTheItems) {
  const KeychainQuery fresh{.service = "locked", .account = "fresh"};
  EXPECT_EQ(statusOf(keychain.add(fresh, "x", KeychainPrompt::allowed), "type password"),
            KeychainStatus::success);
  lock();
  EXPECT_EQ(statusOf(keychain.update(fresh, "y", KeychainPrompt::allowed), "type password"),
            KeychainStatus::success);
  lock();
  EXPECT_EQ(statusOf(keychain.remove(fresh, KeychainPrompt::allowed), "type password"),
            KeychainStatus::success);
  EXPECT_EQ(run(keychain.remove(fresh, KeychainPrompt::never)), KeychainStatus::itemNotFound);
}

TEST_F(PromptTest, ARefusedWriteHasFailedAndIsNotAskedAgain) {
  EXPECT_EQ(statusOf(keychain.update(query, "x", KeychainPrompt::allowed), "key Escape"),
            KeychainStatus::failed);
  letPass(300ms);
  EXPECT_EQ(Prompter::window(), "");
}

// Ends the service of the session, so it comes last.
TEST_F(PromptTest, AServiceThatEndsWhileItAsksHoldsNobodyUp) {
  beginToRead();
  outputOf(
      "kill -9 $(gdbus call --session --dest org.freedesktop.DBus --object-path "
      "/org/freedesktop/DBus --method org.freedesktop.DBus.GetConnectionUnixProcessID "
      "org.freedesktop.secrets | tr -dc '0-9 ' | cut -d' ' -f2)");
  EXPECT_TRUE(letPassUntil([this] { return call.finished(); }));
  EXPECT_FALSE(item.value());
}

}  // namespace
}  // namespace orvane::test
