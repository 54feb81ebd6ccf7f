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

TEST_F(LockedTest, WritesFailAtOnceAndAskNobody) {
  const Prompter prompter;
  const KeychainQuery fresh{.service = "locked", .account = "fresh"};
  const auto time = timeOf([&] {
    EXPECT_EQ(run(keychain.update(query, "x")), KeychainStatus::failed);
    EXPECT_EQ(run(keychain.remove(query)), KeychainStatus::failed);
    EXPECT_EQ(run(keychain.add(fresh, "x")), KeychainStatus::failed);
  });
  EXPECT_LT(time, atOnce);
  letPass(300ms);
  EXPECT_EQ(Prompter::window(), "");
}

TEST_F(LockedTest, PromptingReadWithoutAPrompterGivesNothing) {
  EXPECT_FALSE(run(keychain.copyMatching(query, KeychainPrompt::allowed)));
}

class PromptTest : public LockedTest {
 protected:
  /// Begins a read that may prompt and waits for the dialog.
  void beginToRead() {
    reading = scope.spawn(keep(keychain.copyMatching(query, KeychainPrompt::allowed), item));
    ASSERT_TRUE(letPassUntil([] { return !Prompter::window().empty(); }));
  }
  static Task<void> keep(Task<std::optional<KeychainItem>> task,
                         std::optional<KeychainItem>& item) {
    item = co_await std::move(task);
  }

  Prompter prompter;
  std::optional<KeychainItem> item;
  TaskHandle reading;
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

}  // namespace
}  // namespace orvane::test
