#include <QProcess>

#include "platform/eventloop/real_time.h"
#include "platform/keychain/secret_service_keychain.h"
#include "platform/keychain/service_presence.h"
#include "platform/keychain/session_tools.h"

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
    if (countWithSecretTool(attributes) == 0) storeWithSecretTool(attributes, "secret");
    lock();
  }
  static void lock() {
    outputOf(
        "gdbus call --session --dest org.freedesktop.secrets "
        "--object-path /org/freedesktop/secrets --method org.freedesktop.Secret.Service.Lock "
        "\"['/org/freedesktop/secrets/collection/login']\"");
  }

  SecretServiceKeychain keychain;
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
    if (!dialog.empty())
      outputOf("xdotool windowfocus " + dialog + " key ctrl+a " + keys +
               " 2>/dev/null; xdotool key Return");
    return dialog.empty();
  }

 private:
  QProcess process_;
};

TEST_F(LockedTest, BackgroundReadGivesNothingAtOnceAndAsksNobody) {
  const Prompter prompter;
  std::optional<KeychainItem> item;
  const auto time =
      timeOf([&] { item = run(keychain.copyMatching(query, KeychainPrompt::never)); });
  EXPECT_FALSE(item);
  EXPECT_LT(time, atOnce);
  letPass(300ms);  // a dialog would be there by now
  EXPECT_EQ(Prompter::window(), "");
}

TEST_F(LockedTest, WritesThatMayNotAskFailAtOnceAndAskNobody) {
  const Prompter prompter;
  const KeychainQuery fresh{.service = "locked", .account = "fresh"};
  const auto time = timeOf([&] {
    EXPECT_EQ(run(keychain.update(query, "x", KeychainPrompt::never)), KeychainStatus::failed);
    EXPECT_EQ(run(keychain.remove(query, KeychainPrompt::never)), KeychainStatus::failed);
    EXPECT_EQ(run(keychain.add(fresh, "x", KeychainPrompt::never)), KeychainStatus::failed);
  });
  EXPECT_LT(time, atOnce);
  letPass(300ms);
  EXPECT_EQ(Prompter::window(), "");
}

TEST_F(LockedTest, WithoutAPrompterPromptingCallsAreInVain) {
  EXPECT_FALSE(run(keychain.copyMatching(query, KeychainPrompt::allowed)));
  EXPECT_EQ(run(keychain.update(query, "x", KeychainPrompt::allowed)), KeychainStatus::failed);
}

class PromptTest : public LockedTest {
 protected:
  /// Begins a read that may prompt and waits for the dialog.
  void beginToRead() {
    reading = scope.spawn(keep(keychain.copyMatching(query, KeychainPrompt::allowed), item));
    ASSERT_TRUE(letPassUntil([] { return !Prompter::window().empty(); }));
  }
  /// The same for a write.
  void beginToWrite(Task<KeychainStatus> write) {
    writing = scope.spawn(keep(std::move(write), status));
    ASSERT_TRUE(letPassUntil([] { return !Prompter::window().empty(); }));
  }
  /// The status of the write once the user has answered.
  std::optional<KeychainStatus> statusAfter(const std::string& keys) {
    EXPECT_TRUE(letPassUntil([&keys] { return Prompter::isClosedWith(keys); }));
    EXPECT_TRUE(letPassUntil([this] { return writing.finished(); }));
    return status;
  }
  template <class T>
  static Task<void> keep(Task<T> task, std::optional<T>& result) {
    result = co_await std::move(task);
  }
  static Task<void> keep(Task<std::optional<KeychainItem>> task,
                         std::optional<KeychainItem>& item) {
    item = co_await std::move(task);
  }

  Prompter prompter;
  std::optional<KeychainItem> item;
  std::optional<KeychainStatus> status;
  TaskHandle reading;
  TaskHandle writing;
  TaskScope scope{*executor};
};

TEST_F(PromptTest, CancellingEndsTheReadAtOnceAndHarmsNoService) {
  beginToRead();
  reading.cancel();
  letPass(50ms);
  EXPECT_TRUE(reading.finished());
  EXPECT_FALSE(item);
  EXPECT_TRUE(letPassUntil([] { return Prompter::isClosedWith("key Escape"); }));
  EXPECT_TRUE(run(secretServiceIsPresent()));
}

TEST_F(PromptTest, ARefusalGivesNothing) {
  beginToRead();
  EXPECT_TRUE(letPassUntil([] { return Prompter::isClosedWith("key Escape"); }));
  EXPECT_TRUE(letPassUntil([this] { return reading.finished(); }));
  EXPECT_FALSE(item);
}

TEST_F(PromptTest, TheReadWaitsForTheUserLongerThanForTheServiceAndGivesTheItem) {
  keychain = SecretServiceKeychain(300ms);
  beginToRead();
  letPass(400ms);
  EXPECT_FALSE(reading.finished());
  EXPECT_TRUE(letPassUntil([] { return Prompter::isClosedWith("type password"); }));
  EXPECT_TRUE(letPassUntil([this] { return reading.finished(); }));
  ASSERT_TRUE(item);
  EXPECT_EQ(item->data, "secret");
}

TEST_F(PromptTest, AWriteWaitsForTheUserAndIsDoneThen) {
  beginToWrite(keychain.update(query, "secret", KeychainPrompt::allowed));
  EXPECT_EQ(statusAfter("type password"), KeychainStatus::success);
}

TEST_F(PromptTest, AddingAsksForTheCollectionAndRemovingForTheItems) {
  const KeychainQuery fresh{.service = "locked", .account = "fresh"};
  beginToWrite(keychain.add(fresh, "x", KeychainPrompt::allowed));
  EXPECT_EQ(statusAfter("type password"), KeychainStatus::success);
  lock();
  beginToWrite(keychain.remove(fresh, KeychainPrompt::allowed));
  EXPECT_EQ(statusAfter("type password"), KeychainStatus::success);
  EXPECT_EQ(run(keychain.remove(fresh, KeychainPrompt::never)), KeychainStatus::itemNotFound);
}

TEST_F(PromptTest, ARefusedWriteHasFailedAndIsNotAskedAgain) {
  beginToWrite(keychain.update(query, "x", KeychainPrompt::allowed));
  EXPECT_EQ(statusAfter("key Escape"), KeychainStatus::failed);
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
  EXPECT_TRUE(letPassUntil([this] { return reading.finished(); }));
  EXPECT_FALSE(item);
}

}  // namespace
}  // namespace orvane::test
