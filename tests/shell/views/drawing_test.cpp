#include <QItemSelectionModel>
#include <QTableView>
#include <cmath>
#include <map>

#include "shell/views/figure_table.h"
#include "shell/views/labels.h"
#include "shell/views/view_fixture.h"

namespace orvane::test {
namespace {

using testing::ElementsAre;
using theme::TextColor;

/// Colours, symbols and cells: what a table of texts cannot show.
class DrawingTest : public ViewTest {
 protected:
  [[nodiscard]] static bool isIn(TextColor color, const QLabel& label) {
    return label.palette().color(QPalette::WindowText) ==
           theme::textColor(color, label.parentWidget()->palette());
  }
  /// Whether the symbol that stands beside a text is this one; an empty name: no symbol.
  [[nodiscard]] static bool standsBeside(const QLabel& label, const char* symbol, TextColor color) {
    for (auto* const sibling : label.parentWidget()->findChildren<QWidget*>()) {
      if (!sibling->isVisible() || sibling->width() != theme::symbolSize) { continue; }
      SymbolLabel wanted(label.parentWidget());
      wanted.showSymbol(QString::fromLatin1(symbol), color);
      return sibling->grab().toImage() == wanted.grab().toImage();
    }
    return *symbol == '\0';
  }
};

TEST_F(DrawingTest, AFailureIsOrangeBehindATriangle) {
  show(everything());
  const auto& read = *label("Updated 2:05\u202fPM · 1 BTC = 84,123 € · refreshes every 5 minutes");
  EXPECT_TRUE(isIn(TextColor::secondary, read));
  EXPECT_TRUE(standsBeside(read, "", {}));
  show({.name = {}, .figures = everything(), .then = Sample::Services::fail});
  const auto& failure = *label(*fakes->state().accountStatus);
  EXPECT_TRUE(isIn(TextColor::orange, failure));
  EXPECT_TRUE(standsBeside(failure, "exclamationmark.triangle.fill", TextColor::orange));
}

TEST_F(DrawingTest, ABlockRewardIsGreenOnceItCanBeSpent) {
  show(watchedAddress());
  const auto& young = *label("Block #871,000 · 312,731,002 sats · 13 of 100 confirmations");
  EXPECT_TRUE(isIn(TextColor::orange, young));
  EXPECT_TRUE(standsBeside(young, "hourglass", TextColor::orange));
  const auto& ripe = *label("Block #870,400 · 312,604,177 sats · spendable");
  EXPECT_TRUE(isIn(TextColor::green, ripe));
  EXPECT_TRUE(standsBeside(ripe, "checkmark.seal.fill", TextColor::green));
}

TEST_F(DrawingTest, WhatBelongsToAnAccountOrAMinerIsThereWithThemOnly) {
  const auto shown = [this](const BalanceState& figures) {
    show(figures);
    std::string parts;
    if (label("from Hashwick")) { parts += "miner "; }
    if (find<QLabel>("Open the account at pool.test")) { parts += "link "; }
    if (label("Braiins lists no worker for this account.")) { parts += "no-workers "; }
    if (find<QTableView>("Workers")) { parts += "workers "; }
    if (find<QTableView>("Daily history")) { parts += "history "; }
    return parts;
  };
  EXPECT_EQ(shown(BalanceState{}), "");
  EXPECT_EQ(shown(watchedAddress()), "");
  EXPECT_EQ(shown(poolAccount()), "link workers ");
  EXPECT_EQ(shown(everything()), "miner link workers history ");
  auto withoutWorkers = poolAccount();
  withoutWorkers.workers.clear();
  EXPECT_EQ(shown(withoutWorkers), "link no-workers ");
}

class TablesTest : public DrawingTest {
 protected:
  void SetUp() override { show(everything()); }

  /// A row of a table; the row above the first holds the titles.
  [[nodiscard]] std::vector<std::string> cells(const char* table, int row) const {
    const auto& model = *find<QTableView>(table)->model();
    std::vector<std::string> cells;
    for (int column = 0; column < model.columnCount(); ++column) {
      const auto cell =
          row < 0 ? model.headerData(column, Qt::Horizontal) : model.index(row, column).data();
      cells.push_back(cell.toString().toStdString());
    }
    return cells;
  }
};

TEST_F(TablesTest, EveryFigureStandsUnderItsTitle) {
  EXPECT_THAT(cells("Workers", -1), ElementsAre("Worker", "State", "5 min", "60 min", "24 h"));
  EXPECT_THAT(cells("Workers", 0),
              ElementsAre("garage", "Low", "95.68 TH/s", "93.80 TH/s", "90.99 TH/s"));
  EXPECT_THAT(cells("Daily history", -1),
              ElementsAre("DATE", "AVG HASHRATE", "ACCEPTED SHARES", "CONFIRMED REWARD"));
  EXPECT_THAT(cells("Daily history", 0),
              ElementsAre("Nov 15, 2026", "91.00 TH/s", "1,900,000,000", "4,000 sats"));
}

TEST_F(TablesTest, AWorkersStateHasADotAndATip) {
  const auto& model = *find<QTableView>("Workers")->model();
  using enum theme::MarkColor;
  const std::map<std::string, theme::MarkColor> dots{
      {"OK", green}, {"Low", orange}, {"Off", red}, {"Disabled", gray}, {"—", gray}};
  ASSERT_EQ(model.rowCount(), 6);
  for (int row = 0; row < model.rowCount(); ++row) {
    const auto word = model.index(row, 1).data().toString().toStdString();
    EXPECT_EQ(model.index(row, 1).data(dotColorRole), static_cast<int>(dots.at(word))) << word;
    EXPECT_FALSE(model.index(row, 0).data(dotColorRole).isValid());
  }
  const auto tip = [&model](int column) {
    return model.index(0, column).data(Qt::ToolTipRole).toString().toStdString();
  };
  EXPECT_THAT((std::array{tip(0), tip(1), tip(2)}),
              ElementsAre("pellam.garage", "Last share Nov 15, 2026, 2:02 PM", ""));
}

TEST_F(TablesTest, NothingCanBeSelectedOrEdited) {
  for (const char* name : {"Workers", "Daily history"}) {
    auto& table = *find<QTableView>(name);
    table.selectAll();
    EXPECT_FALSE(table.selectionModel()->hasSelection()) << name;
    EXPECT_EQ(table.editTriggers(), QAbstractItemView::NoEditTriggers) << name;
  }
}

double luminance(const QColor& color) {
  return 0.2126 * std::pow(color.redF(), 2.2) + 0.7152 * std::pow(color.greenF(), 2.2) +
         0.0722 * std::pow(color.blueF(), 2.2);
}

// The least contrast that the guidelines for accessible text ask for.
TEST(ThemeTest, TextIsReadableOnLightAndDarkGrounds) {
  for (const auto& [ground, text] : {std::pair(0xfff5f5f6, 0xff1d1f22),  //
                                     std::pair(0xff242629, 0xffecedee)}) {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(ground));
    palette.setColor(QPalette::WindowText, QColor(text));
    palette.setColor(QPalette::Link, Qt::blue);  // nobody's choice
    using enum TextColor;
    std::vector<QColor> colors{theme::linkColor(palette)};
    for (const auto color : {primary, secondary, green, orange, red}) {
      colors.push_back(theme::textColor(color, palette));
    }
    for (const auto& color : colors) {
      const auto [dark, light] = std::minmax({luminance(color), luminance(QColor(ground))});
      EXPECT_GT((light + 0.05) / (dark + 0.05), 4.5)
          << color.name().toStdString() << " on " << std::hex << ground;
    }
  }
}

}  // namespace
}  // namespace orvane::test
