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
  [[nodiscard]] QLineEdit& address() const {
    return *find<QLineEdit>(QStringLiteral("Bitcoin address to watch"));
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

TEST_F(SettingsStory, SavedTokenIsKeptAndRemovedTokenIsGone) {
  launch();
  token().setText(QStringLiteral("  fresh\n"));
  ASSERT_TRUE(saveToken().isEnabled());
  saveToken().click();
  settle();
  EXPECT_EQ(keptToken(), "fresh");
  EXPECT_FALSE(saveToken().isEnabled());
  EXPECT_TRUE(showsText(QStringLiteral("203 sats")));

  button(QStringLiteral("Remove"), tokenField)->click();
  settle();
  EXPECT_EQ(keptToken(), std::nullopt);
  EXPECT_EQ(token().text(), QString());
  EXPECT_TRUE(showsText(QStringLiteral("No API token")));
}

TEST_F(SettingsStory, ARefusedAddressStaysInItsFieldUnderARedMessage) {
  launch();
  address().setText(QStringLiteral(" bc1-typo "));
  Q_EMIT address().returnPressed();
  settle();
  const auto message =
      QStringLiteral("This is not a Bitcoin mainnet address. It starts with bc1, 1 or 3.");
  EXPECT_TRUE(showsText(message));
  EXPECT_EQ(address().text(), QStringLiteral(" bc1-typo "));

  address().setText(QStringLiteral("  ") + QString::fromLatin1(firstAddress) + u' ');
  Q_EMIT address().returnPressed();
  settle();
  EXPECT_FALSE(showsText(message));
  EXPECT_EQ(address().text(), QString::fromLatin1(firstAddress));
  EXPECT_TRUE(showsText(QString::fromLatin1(firstAddress)));
  EXPECT_EQ(statusItem().toolTip, "Orvane · Address 100.000 sats");
}

}  // namespace
}  // namespace orvane::test
