#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QLineEdit>
#include <QShortcut>
#include <QTableView>
#include <QTemporaryDir>
#include <QUrl>
#include "pool/history_export.h"
#include "shell/views/about_and_help.h"
#include "shell/views/payments_view.h"
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

/// Presses the controls of the main window, and sees what the store does.
class CommandsTest : public ViewTest {
 protected:
  void advance() {
    fakes->executor.advance(2 * BraiinsAccountClient::poolRequestGap);
    settle();
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
    EXPECT_EQ(fakes->transport.sentTo("rewards"), loads);
  }
}

TEST_F(CommandsTest, EitherUnitPickerChoosesForAllAmounts) {
  show(everything());
  const auto units = visible<QRadioButton>();  // of either card; then those of currencies
  for (const int pressed : {1, 2, 3, 0}) {
    units.at(pressed)->click();
    settle();
    const bool isBTC = pressed % 2 == 1;
    EXPECT_EQ(units.at(1)->isChecked() && units.at(3)->isChecked(), isBTC);
    EXPECT_TRUE(label(isBTC ? "0.00128203 BTC" : "128,203 sats"));
  }
}

TEST_F(CommandsTest, TheCurrencyPickerOffersEuroThenDollar) {
  show(everything());
  const auto currencies = visible<QRadioButton>().mid(4);
  EXPECT_EQ(currencies.at(0)->text(), QStringLiteral("€"));
  EXPECT_TRUE(currencies.at(0)->isChecked());
  currencies.at(1)->click();
  settle();
  EXPECT_TRUE(label("≈ 117.74 $"));  // the balance
  EXPECT_TRUE(label("≈ 3.79 $"));    // of it today's
}

TEST_F(CommandsTest, RemoveStandsBesideAKeptTextAndForgetsIt) {
  show(watchedAddress());
  EXPECT_FALSE(button("Remove", "Braiins API token"));
  button("Remove", "Bitcoin address to watch")->click();
  EXPECT_EQ(find<QLineEdit>("Bitcoin address to watch")->text(), QString());
  EXPECT_EQ(fakes->state().ownAddress, "");
}

TEST_F(CommandsTest, AnAcceptedAddressStandsInItsFieldAsItIsKept) {
  show(BalanceState{});
  auto& edit = *find<QLineEdit>("Bitcoin address to watch");
  edit.setText(u' ' + QString::fromLatin1(secondAddress) + u' ');
  Q_EMIT edit.returnPressed();
  EXPECT_EQ(edit.text(), QString::fromLatin1(secondAddress));
}

TEST_F(CommandsTest, RowsOfTheHistoryAreCopiedAndAllAreSavedOrTheFailureTold) {
  show(everything());
  auto& table = *find<QTableView>("Daily history");
  EXPECT_EQ(table.contextMenuPolicy(), Qt::ActionsContextMenu);
  const auto copied = [&] {
    return QGuiApplication::clipboard()->text().split(u'\n', Qt::SkipEmptyParts);
  };
  table.actions().at(1)->trigger();
  EXPECT_EQ(copied().size(), 365);
  table.setFocus();
  table.setCurrentIndex(table.model()->index(1, 2));
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(
      copied(),
      QStringList{QStringLiteral("2026-11-14\t91100000000000\t1900007919\t0.00004013\t4013")});
  const QTemporaryDir folder;
  place = folder.filePath(QStringLiteral("no/a.csv"));
  view->saveHistory();
  EXPECT_TRUE(label("The history could not be saved: No such file or directory."));
  place = folder.filePath(QStringLiteral("a.csv"));
  table.actions().at(3)->trigger();
  EXPECT_FALSE(label("The history could not be saved: No such file or directory."));
  QFile file(place);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toStdString(), historyCsv(fakes->state().history));
}

TEST_F(CommandsTest, AWorkersCellAndRowAreCopied) {
  show(everything());
  auto& table = *find<QTableView>("Workers");
  table.setFocus();
  table.setCurrentIndex(table.model()->index(0, 2));
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("95.68 TH/s"));
  table.actions().at(1)->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text(),
            QStringLiteral("garage\tLow\t95.68 TH/s\t93.80 TH/s\t90.99 TH/s"));
}

TEST_F(CommandsTest, WorkerAlertsAreOffUntilTheirTextOrBoxIsClicked) {
  show(BalanceState{});
  const auto text = "Notify me when a worker stops or recovers";
  EXPECT_FALSE(find<QCheckBox>(text)->isChecked());
  QTest::mouseClick(label(text), Qt::LeftButton);
  EXPECT_TRUE(fakes->state().notifiesWorkerStates && find<QCheckBox>(text)->isChecked());
  find<QCheckBox>(text)->click();
  EXPECT_FALSE(fakes->state().notifiesWorkerStates);
}

// Not by the key itself, which depends on the window that is active.
TEST_F(CommandsTest, EscapeCloses) {
  show(BalanceState{});
  auto& escape = *view->findChild<QShortcut*>();
  EXPECT_EQ(escape.key(), QKeySequence(Qt::Key_Escape));
  Q_EMIT escape.activated();
  EXPECT_EQ(closes, 1);
}

/// What the desktop would open.
class Browser final : public QObject {
  Q_OBJECT

 public:
  Q_INVOKABLE void open(const QUrl& url) { opened.append(url.toString()); }
  QStringList opened;
};

TEST_F(CommandsTest, ALinkOpensItsPage) {
  Browser browser;
  QDesktopServices::setUrlHandler(QStringLiteral("https"), &browser, "open");
  show(poolAccount());
  auto* const link = find<QLabel>("Open the account at pool.test");
  QTest::mouseClick(link, Qt::LeftButton, {}, {5, link->height() / 2});
  EXPECT_EQ(browser.opened, QStringList{QStringLiteral("https://pool.test/")});
  QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
}

TEST_F(CommandsTest, PaymentsOpenAPageOrAreCopiedWhenOneIsChosenWhichStaysTheChosenOne) {
  Browser browser;
  QDesktopServices::setUrlHandler(QStringLiteral("https"), &browser, "open");
  show(watchedAddress());
  PaymentsView payments(*fakes->store, english, "explorer.test");
  payments.show();
  auto& table = *payments.findChild<QTableView*>();
  const auto buttons = payments.findChildren<QPushButton*>();
  EXPECT_FALSE(buttons[0]->isEnabled() || buttons[1]->isEnabled());
  table.selectRow(1);
  auto figures = watchedAddress();
  figures.addressSummary->incoming.insert(figures.addressSummary->incoming.begin(),
                                          {.txid = "new", .sats = 1, .blockHeight = {}});
  fakes->bring(figures);
  settle();
  EXPECT_EQ(table.model()->rowCount(), 4);
  EXPECT_EQ(table.model()->index(2, 3).data(Qt::ToolTipRole).toString(), QStringLiteral("b"));
  EXPECT_TRUE(browser.opened.isEmpty());
  buttons[1]->click();
  EXPECT_EQ(browser.opened, QStringList{QStringLiteral("https://explorer.test/tx/b")});
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("b"));
  fakes->store->setUnit(BalanceUnit::btc);
  settle();
  EXPECT_EQ(table.model()->index(0, 0).data().toString(), QStringLiteral("0.00000001 BTC"));
  QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
}

TEST_F(CommandsTest, PaymentsFollowTheUnitInWhicheverTheirWindowOpenedAndAreNeverCutOff) {
  auto figures = watchedAddress();
  figures.addressSummary->incoming[0].txid.assign(64, 'd');
  for (const auto first : {BalanceUnit::sats, BalanceUnit::btc}) {
    show(figures);
    fakes->store->setUnit(first);
    PaymentsView payments(*fakes->store, english, "explorer.test");
    payments.show();
    settle();
    auto& table = *payments.findChild<QTableView*>();
    const int before = table.columnWidth(0);
    fakes->store->setUnit(first == BalanceUnit::sats ? BalanceUnit::btc : BalanceUnit::sats);
    settle();
    EXPECT_NE(table.columnWidth(0), before);  // it fits its texts
    payments.resize(1, 1);
    settle();
    QStyleOptionViewItem option;
    option.font = table.font();
    for (int column = 0; column < table.model()->columnCount(); ++column) {
      const auto cell = table.model()->index(0, column);
      EXPECT_GE(table.columnWidth(column), table.itemDelegate()->sizeHint(option, cell).width());
    }
  }
}

TEST(HelpTest, SaysAllThatItIsToldUnderOneLineAndClosesItsWindow) {
  QWidget window;
  const FennickAppInfo info{
      .name = "Name", .summary = "Sum", .helpIntroduction = {"1", "2"}, .contextualHelp = "3"};
  const FennickAppHelpView help(info, {}, "", &window);
  window.show();
  QStringList texts;
  for (const auto* const label : help.findChildren<QLabel*>()) {
    texts.append(label->text());
  }
  EXPECT_EQ(texts.join(u'|').toStdString(),
            "Name|Sum|About this app|1|2|Contextual help|3|The Fennick Tools");
  EXPECT_EQ(std::ranges::count_if(help.findChildren<QWidget*>(),
                                  [](auto* each) { return dynamic_cast<Divider*>(each); }),
            1);
  help.findChild<QPushButton*>()->click();
  EXPECT_FALSE(window.isVisible());
}

}}  // namespace orvane::test

#include "commands_test.moc"
