#include <QAccessible>
#include <QClipboard>
#include <QIdentityProxyModel>
#include <QScrollBar>
#include <QTableView>
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

using namespace Qt::StringLiterals;

using LayoutTest = ViewTest;

/// Another size of the interface font, for a while.
struct FontSize {
  explicit FontSize(int points) {
    QFont font = before;
    font.setPointSize(points);
    QApplication::setFont(font);
  }
  ~FontSize() { QApplication::setFont(before); }
  const QFont before = QApplication::font();
};

bool isCutOff(const QLabel& label) {
  if (label.textFormat() == Qt::RichText) { return false; }
  const QFontMetrics metrics(label.font());
  if (metrics.height() > label.height() + 1) { return true; }
  if (!label.wordWrap()) { return metrics.horizontalAdvance(label.text()) > label.width() + 1; }
  const auto words = label.text().split(u' ');
  return label.heightForWidth(label.width()) > label.height() + 1 ||
         std::ranges::any_of(words, [&](const QString& word) {
           return metrics.horizontalAdvance(word) > label.width() + 1;
         });
}

// In every state, at the least width, the others that the design names and those of small screens,
// up to twice the font.
TEST_F(LayoutTest, NoTextIsCutOffAndNothingScrollsSideways) {
  for (const auto& [points, narrowest] : {std::pair(9, 640), {13, 800}, {20, 1190}}) {
    const FontSize font(points);
    for (const auto& sample : samples()) {
      show(sample);
      const int least = view->minimumWidth();
      for (const int width : {least, 640, 800, 1000, 1190, 1600}) {
        if (width < std::min(least, narrowest)) { continue; }
        resize(width, 900);
        const std::string where = sample.name + " at " + std::to_string(points) + " points, " +
                                  std::to_string(width) + " wide: ";
        for (const auto* const label : visible<QLabel>()) {
          EXPECT_FALSE(isCutOff(*label)) << where << label->text().toStdString();
        }
        for (const auto* const area : visible<QAbstractScrollArea>()) {
          EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0)
              << where << area->accessibleName().toStdString();
        }
      }
    }
  }
}

/// Where the text of a label or of a control stands.
int baseline(const QWidget& text) {
  const QFontMetrics metrics(text.font());
  return text.mapTo(text.window(), QPoint()).y() + (text.height() - metrics.height()) / 2 +
         metrics.ascent();
}

// The totals are in sight at once, also of a history that has yet to come.
TEST_F(LayoutTest, AWindowThatSizesItselfHasTheTotalsInOneRow) {
  for (const int points : {9, 13}) {
    const FontSize font(points);
    auto figures = everything();
    show(figures);
    const int width = view->width();
    EXPECT_GT(width, view->minimumWidth());
    EXPECT_EQ(baseline(*label("TOTAL")), baseline(*label("VALUE · EUR"))) << points;
    figures.history.clear();
    show(figures);
    EXPECT_EQ(view->width(), width) << points;
  }
}

TEST_F(LayoutTest, ValuesStandBesideBothFiguresOrBeneathBoth) {
  auto figures = everything();
  figures.addressSummary->confirmedSats = 25'179;  // beside its value in any font
  for (const std::int64_t balance : {128'203LL, 2'099'999'997'690'000LL}) {
    figures.stats->balanceSats = balance;
    show(figures);
    std::vector<bool> areBeneath;
    for (const auto* const each : visible<QLabel>()) {
      const auto* const row = each->parentWidget();
      if (!each->text().startsWith(u'≈') || row->findChildren<QLabel*>().size() != 2) { continue; }
      areBeneath.push_back(each->x() == 0);
    }
    const bool fits = balance < 1'000'000;
    EXPECT_EQ(areBeneath, std::vector(2, !fits)) << balance;
  }
}

TEST_F(LayoutTest, AStatusGoesOnInAFurtherLineBetweenItsPartsAndIsCopiedAsItReads) {
  const QString text = u"Updated 2:05\u202fPM · 1 BTC = 84,123 € · refreshes every 5 minutes"_s;
  for (const int points : {20, 13, 9}) {
    const FontSize font(points);
    show(everything());
    const auto lines = label(text.toStdString())->text().split(u' ');
    EXPECT_EQ(lines.size(), 3) << points;
    EXPECT_TRUE(lines[0].endsWith(u'·') && lines[1].endsWith(u'·')) << points;
  }
  show(everything());
  auto& status = *label(text.toStdString());
  status.setFocus();
  status.setSelection(0, static_cast<int>(text.size()));
  QTest::keySequence(&status, QKeySequence::Copy);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
}

TEST_F(LayoutTest, AHundredWorkersStandWholeAndMoreShowThatTheyGoOn) {
  auto figures = everything();
  for (const auto& [count, rows] : {std::pair(100, 100.0), {101, 12.5}}) {
    figures.workers = manyWorkers(count);
    show(figures);
    const auto& table = *find<QTableView>("Workers");
    EXPECT_EQ(table.viewport()->height(), rows * table.rowHeight(0)) << count;
  }
}

TEST_F(LayoutTest, TheLeftColumnIsFixedBesideTheAccountAndTakesAllWithoutIt) {
  show(everything());
  resize(1600, 900);
  EXPECT_EQ(find<QScrollArea>("Balance and settings")->width(), 500);
  show(watchedAddress());
  resize(1600, 900);
  EXPECT_EQ(find<QScrollArea>("Balance and settings")->width(), 1600);
}

/// Where what is written in the first row's cell begins and ends in the window.
std::pair<int, int> inkOf(const QTableView& table, int column) {
  const QRect cell = table.visualRect(table.model()->index(0, column)).adjusted(0, 0, 0, -2);
  const auto [left, right] = inkWithin(table.viewport()->grab(cell));
  const int begin = table.viewport()->mapTo(table.window(), cell.topLeft()).x();
  return {begin + left, begin + cell.width() - right};
}

TEST_F(LayoutTest, TheAccountStandsBelowWhereTheScreenHasNoRoomBesideAndKeepsTheFocus) {
  show(everything());
  auto& table = *find<QTableView>("Workers");
  table.setFocus();
  const auto placeOf = [this](const char* text) {
    return label(text)->mapTo(view.get(), QPoint()) - QPoint(24, 0);
  };
  for (const int width : {1000, 1190}) {
    resize(width, 900);
    const bool isBelow = placeOf("Workers").y() > placeOf("Settings").y();
    EXPECT_EQ(isBelow, width == 1000);
    EXPECT_EQ(placeOf("Workers").x(), isBelow ? 0 : 501);
    EXPECT_TRUE(table.hasFocus());
  }
}

TEST_F(LayoutTest, AButtonsTextStandsInItsMiddleWithRoomAround) {
  for (const int points : {9, 20}) {
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
      const FontSize font(points);
      QApplication::setLayoutDirection(direction);
      show(everything());
      for (auto* const each : visible<QPushButton>()) {
        if (each->text().isEmpty()) { continue; }
        const auto [left, right] = inkWithin(each->grab(each->rect().adjusted(4, 8, -4, -8)));
        EXPECT_GE(left, 4) << each->text().toStdString() << " at " << points;
        EXPECT_NEAR(left, right, 3) << each->text().toStdString() << " at " << points;
      }
    }
  }
  QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(LayoutTest, AScrollBarTakesNoWidthFromWhatScrolls) {
  auto figures = everything();
  for (const auto [height, days] : {std::pair(600, 365U), {1'150, 2U}}) {
    figures.history.resize(days);
    show(figures);
    resize(1190, height);
    auto& column = *find<QScrollArea>("Balance and settings");
    auto& table = *find<QTableView>("Daily history");
    EXPECT_EQ(column.verticalScrollBar()->isVisible(), height == 600);
    EXPECT_EQ(table.verticalScrollBar()->isVisible(), height == 600);
    EXPECT_EQ(label("Braiins Pool balance")->parentWidget()->width(), 500 - 2 * 24);
    EXPECT_EQ(table.viewport()->width(), 1190 - 501 - 2 * 25);
  }
}

TEST_F(LayoutTest, EverythingInTheHistoryBeginsAndEndsAtTheSameEdges) {
  show(everything());
  resize(1600, 900);
  const auto edgesOf = [](const QWidget& widget) {
    const int left = widget.mapTo(widget.window(), QPoint()).x();
    return std::pair(left, left + widget.width());
  };
  const int left = edgesOf(*label("TOTAL")).first;
  const int right = edgesOf(*button("Refresh", "Daily history")).second;
  for (const char* const name : {"Workers", "Daily history"}) {
    const auto& table = *find<QTableView>(name);
    EXPECT_NEAR(inkOf(table, 0).first, left, 3) << name;
    EXPECT_NEAR(inkOf(table, table.model()->columnCount() - 1).second, right, 3) << name;
  }
}

TEST_F(LayoutTest, ATitleAndItsControlStandOnOneBaseline) {
  for (const int points : {9, 13, 16}) {
    const FontSize font(points);
    show(everything());
    resize(1600, 900);
    const auto segments = visible<QRadioButton>();
    for (const auto& [title, control] :
         {std::pair("Braiins Pool balance", 0), {"Watched address", 2}, {"Daily history", 6}}) {
      EXPECT_EQ(baseline(*label(title)), baseline(*segments.at(control)))
          << title << " at " << points;
    }
  }
}

TEST_F(LayoutTest, TabGoesFromTheCardsToTheBarAndEveryStationHasAName) {
  show(everything());
  const QString landmarks =
      u"sats,Braiins API token,Remove,Workers,Daily history,Close,Help and commands"_s;
  QStringList passed;
  for (auto* at = view->nextInFocusChain(); at != view.get(); at = at->nextInFocusChain()) {
    if (at->isVisible() && (at->focusPolicy() & Qt::TabFocus)) {
      const auto name = QAccessible::queryAccessibleInterface(at)->text(QAccessible::Name);
      EXPECT_FALSE(name.isEmpty()) << at->metaObject()->className();
      if (landmarks.split(u',').contains(name)) { passed.append(name); }
    }
  }
  passed.removeDuplicates();
  EXPECT_EQ(passed.join(u',').toStdString(), landmarks.toStdString());
}

TEST_F(LayoutTest, NoFigureIsCutOffInAFontSize) {
  for (const int points : {9, 13, 20}) {
    const FontSize font(points);
    auto figures = everything();
    figures.workers.at(0).hashRate5m = figures.workers.at(0).hashRate24h = 1e14;
    show(figures);
    resize(1600, 900);
    for (const auto& [name, firstFigure] :
         {std::pair("Workers", 1), std::pair("Daily history", 0)}) {
      const auto& table = *find<QTableView>(name);
      const QFontMetrics metrics(table.font());
      EXPECT_GE(table.rowHeight(0), metrics.height() + 12) << name << " at " << points;
      for (int column = firstFigure; column < table.model()->columnCount(); ++column) {
        const auto text = table.model()->index(0, column).data().toString();
        EXPECT_LE(metrics.horizontalAdvance(text) + 24, table.columnWidth(column))
            << name << " at " << points << ": " << text.toStdString();
      }
    }
  }
}

/// Counts the rows that a table asks for.
struct CountingModel final : QIdentityProxyModel {
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole) { rows.insert(index.row()); }
    return QIdentityProxyModel::data(index, role);
  }
  mutable std::set<int> rows;
};

TEST_F(LayoutTest, ALargeListAsksOnlyForTheRowsInSight) {
  auto figures = everything();
  figures.workers = manyWorkers(10'000);
  auto reward = figures.addressSummary->incoming.at(0);
  reward.isCoinbase = true;
  figures.addressSummary->incoming.assign(10'000, reward);
  show(figures);
  auto* const column = find<QScrollArea>("Balance and settings");
  for (const char* name : {"Workers", "Block rewards"}) {
    auto& list = *find<QAbstractItemView>(name);
    const QModelIndex last = list.model()->index(9'999, 0);
    const auto* const spoken = QAccessible::queryAccessibleInterface(&list);
    EXPECT_FALSE(spoken->child(spoken->childCount() - 1)->text(QAccessible::Name).isEmpty());
    list.setFocus();
    list.setCurrentIndex(last);  // brings it into sight
    settle();
    CountingModel counting;
    counting.setSourceModel(list.model());
    list.setModel(&counting);
    if (auto* const bar = list.verticalScrollBar()) { bar->setValue(bar->maximum()); }
    view->grab();
    EXPECT_LT(counting.rows.size(), 60U) << name;
    EXPECT_TRUE(counting.rows.contains(9'999)) << name;
    list.setModel(counting.sourceModel());
  }
  EXPECT_GT(column->verticalScrollBar()->value(), 10'000);
}

}}  // namespace orvane::test
