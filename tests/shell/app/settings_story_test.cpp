#include "shell/app/app_fixture.h"

namespace orvane::test {
namespace {

const QString tokenField = QStringLiteral("Braiins API token");

class SettingsStory : public AppTest {
 protected:
  [[nodiscard]] QLineEdit& token() const { return *find<QLineEdit>(tokenField); }
  [[nodiscard]] QPushButton& saveToken() const {
    return *button(QStringLiteral("Save"), tokenField);
  }

  /// Starts with a stored token behind a keychain that waits for the user.
  void launchLocked() {
    storeToken("stored");
    keychain.condition = MemoryKeychain::Condition::locked;
    launch();
    ASSERT_TRUE(keychain.isPrompting());
  }
  void unlock() {
    keychain.answerPrompt(true);
    settle();
  }
};

TEST_F(SettingsStory, ATokenThatArrivesLateFillsTheEmptyField) {
  launchLocked();
  EXPECT_EQ(token().text(), QString());
  EXPECT_FALSE(saveToken().isEnabled());
  Q_EMIT token().returnPressed();  // nothing typed, nothing to save
  unlock();
  EXPECT_EQ(token().text(), QStringLiteral("stored"));
  EXPECT_FALSE(saveToken().isEnabled());
  EXPECT_EQ(keptToken(), "stored");
}

TEST_F(SettingsStory, ATokenThatArrivesLateLeavesWhatIsBeingTypedAlone) {
  launchLocked();
  token().setFocus();
  QTest::keyClicks(&token(), QStringLiteral("new"));
  unlock();
  EXPECT_EQ(token().text(), QStringLiteral("new"));
  EXPECT_TRUE(token().hasFocus());
  EXPECT_TRUE(saveToken().isEnabled());
}

TEST_F(SettingsStory, ARemovedTokenIsGoneEverywhere) {
  storeToken("stored");
  launch();
  button(QStringLiteral("Remove"), tokenField)->click();
  settle();
  EXPECT_EQ(keptToken(), std::nullopt);
  EXPECT_EQ(token().text(), QString());
  EXPECT_TRUE(showsText(QStringLiteral("No API token")));
  EXPECT_EQ(statusItem().toolTip, "Orvane · No API token or address");
}

}  // namespace
}  // namespace orvane::test
