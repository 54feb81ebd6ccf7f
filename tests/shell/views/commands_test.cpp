#include <QDesktopServices>
#include <QLineEdit>
#include <QMenu>
#include <QUrl>

#include "shell/views/about_and_help.h"
#include "shell/views/theme.h"
#include "shell/views/view_fixture.h"

namespace orvane::test {
namespace {

/// What the desktop would open.
class Browser final : public QObject {
  Q_OBJECT

 public:
  Browser() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

  Q_INVOKABLE void open(const QUrl& url) { opened.append(url.toString()); }

  QStringList opened;
};

/// Presses the controls of the main window, and sees what the store does.
class CommandsTest : public ViewTest {
 protected:
  void advance() {
    fakes->executor.advance(BraiinsAccountClient::poolRequestGap);
    settle();
  }
  [[nodiscard]] std::vector<QRadioButton*> choices(const char* picker) const {
    auto found = visible<QRadioButton>();
    std::erase_if(found, [picker](const QRadioButton* each) {
      return each->accessibleDescription() != QLatin1String(picker);
    });
    return found;
  }
};

TEST_F(CommandsTest, RefreshOnEitherCardAsksBothSources) {
  show(everything());
  for (const char* card : {"Braiins Pool balance", "Watched address"}) {
    advance();
    fakes->transport.clearSent();
    button("Refresh", card)->click();
    advance();
    EXPECT_EQ(fakes->transport.sentTo("pool.test/accounts/profile"), 1U) << card;
    EXPECT_EQ(fakes->transport.sentTo("explorer.test/api/address"), 2U) << card;
  }
}

TEST_F(CommandsTest, TheHistorysButtonsLoadIt) {
  show(poolAccount());
  for (const std::size_t loads : {1U, 2U}) {
    button("Refresh", "Daily history")->click();  // beside the title, then in the row of totals
    advance();
    advance();
    EXPECT_EQ(fakes->transport.sentTo("rewards"), loads);
  }
}

TEST_F(CommandsTest, EitherUnitPickerChoosesForAllAmounts) {
  show(everything());
  const auto units = choices("Unit");
  ASSERT_EQ(units.size(), 4U);
  for (const std::size_t pressed : {1U, 2U, 3U, 0U}) {
    units[pressed]->click();
    settle();
    const bool isBTC = pressed % 2 == 1;
    EXPECT_EQ(fakes->state().unit, isBTC ? BalanceUnit::btc : BalanceUnit::sats);
    EXPECT_EQ(units[1]->isChecked() && units[3]->isChecked(), isBTC);
    EXPECT_TRUE(label(isBTC ? "0.00128203 BTC" : "128,203 sats"));
  }
}

TEST_F(CommandsTest, TheCurrencyPickerOffersEuroThenDollar) {
  show(poolAccount());
  const auto currencies = choices("Preferred currency");
  ASSERT_EQ(currencies.size(), 2U);
  EXPECT_EQ(currencies[0]->text(), QStringLiteral("€"));
  EXPECT_TRUE(currencies[0]->isChecked());
  currencies[1]->click();
  settle();
  EXPECT_EQ(fakes->state().preferredFiatCurrency, PreferredFiatCurrency::usd);
  EXPECT_TRUE(label("≈ 117.74 $"));  // the balance
  EXPECT_TRUE(label("≈ 3.79 $"));    // of it today's
}

TEST_F(CommandsTest, SaveKeepsAFieldsTextAndRemoveForgetsIt) {
  show(BalanceState{});
  struct Field {
    const char* name;
    const char* text;
    std::string BalanceState::* kept;
  };
  for (const auto& [name, text, kept] :
       {Field{"Braiins API token", "token", &BalanceState::token},
        Field{"Bitcoin address to watch", secondAddress, &BalanceState::ownAddress}}) {
    EXPECT_FALSE(button("Save", name)->isEnabled()) << name;
    EXPECT_FALSE(button("Remove", name)) << name;
    auto& edit = *find<QLineEdit>(name);
    edit.setText(QString::fromLatin1(text));
    button("Save", name)->click();
    EXPECT_EQ(fakes->state().*kept, text);
    EXPECT_FALSE(button("Save", name)->isEnabled()) << name;
    button("Remove", name)->click();
    EXPECT_EQ(fakes->state().*kept, "") << name;
    EXPECT_EQ(edit.text(), QString()) << name;
  }
}

TEST_F(CommandsTest, AnAcceptedAddressStandsInItsFieldAsItIsKept) {
  show(BalanceState{});
  auto& edit = *find<QLineEdit>("Bitcoin address to watch");
  edit.setText(u' ' + QString::fromLatin1(secondAddress) + u' ');
  Q_EMIT edit.returnPressed();
  EXPECT_EQ(edit.text(), QString::fromLatin1(secondAddress));
}

TEST_F(CommandsTest, ARefusedAddressIsExplainedInRed) {
  show(BalanceState{});
  find<QLineEdit>("Bitcoin address to watch")->setText(QStringLiteral("bc1-typo"));
  button("Save", "Bitcoin address to watch")->click();
  const auto* const message =
      label("This is not a Bitcoin mainnet address. It starts with bc1, 1 or 3.");
  ASSERT_TRUE(message);
  EXPECT_EQ(message->palette().color(QPalette::WindowText),
            theme::textColor(theme::TextColor::red, view->palette()));
}

TEST_F(CommandsTest, ALinkOpensItsPage) {
  const Browser browser;
  show(poolAccount());
  auto* const link = find<QLabel>("Open the account at pool.test");
  ASSERT_TRUE(link);
  QTest::mouseClick(link, Qt::LeftButton, {}, {5, link->height() / 2});
  EXPECT_EQ(browser.opened, QStringList{QStringLiteral("https://pool.test/")});
}

TEST_F(CommandsTest, TheBarClosesAndHoldsTheApplicationsCommands) {
  show(BalanceState{});
  button("Close", "")->click();
  EXPECT_EQ(closes, 1);
  QTest::keyClick(view.get(), Qt::Key_Escape);
  EXPECT_EQ(closes, 2);
  const auto commands = find<QPushButton>("Help and commands")->menu()->actions();
  ASSERT_EQ(commands.size(), 1);
  EXPECT_EQ(commands[0]->text(), QStringLiteral("Orvane Help"));
  commands[0]->trigger();
  EXPECT_EQ(helpCommands, 1);
}

std::string textsOf(const QWidget& view) {
  QStringList texts;
  for (const auto* const label : view.findChildren<QLabel*>()) {
    texts.append(label->text());
  }
  return texts.join(u'|').toStdString();
}

TEST(AboutAndHelpTest, SayWhatTheyAreToldAndClose) {
  const FennickAppInfo info{.name = "Name",
                            .summary = "Summary",
                            .helpIntroduction = {"First", "Second"},
                            .contextualHelp = "Context"};
  int closes = 0;
  const FennickAboutView about(info, [&closes] { ++closes; }, "", "Version 1");
  const FennickAppHelpView help(info, [&closes] { ++closes; }, "");
  EXPECT_EQ(textsOf(about), "Version 1|Name|Summary|The Fennick Tools");
  EXPECT_EQ(textsOf(help),
            "Name|Summary|About this app|First|Second|Contextual help|Context|The Fennick Tools");
  about.findChild<QPushButton*>()->click();
  help.findChild<QPushButton*>()->click();
  EXPECT_EQ(closes, 2);
}

TEST(AboutAndHelpTest, CloseTheirWindowWhenNobodyElseDoes) {
  QWidget window;
  const FennickAboutView about(orvaneAppInfo(), {}, "", "", &window);
  window.show();
  about.findChild<QPushButton*>()->click();
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace orvane::test

#include "commands_test.moc"
