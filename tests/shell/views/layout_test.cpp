#include <QAccessible>
#include <QIdentityProxyModel>
#include <QScrollBar>
#include <QTableView>
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

using namespace Qt::StringLiterals;

using LayoutTest = ViewTest;

bool isCutOff(const QLabel& label) {
  if (label.wordWrap() || label.textFormat() == Qt::RichText) { return false; }
  return QFontMetrics(label.font()).horizontalAdvance(label.text()) > label.width() + 1;
}

// In every state, at every width that the design names.
TEST_F(LayoutTest, NoTextIsCutOffAndNoColumnScrollsSideways) {
  for (const auto& sample : samples()) {
    show(sample);
    const int leastWidth = windowLayout(fakes->state()).minimumWidth;
    for (const int width : {500, 640, 1190, 1600}) {
      if (width < leastWidth) { continue; }
      resize(width, 900);
      for (const auto* const label : visible<QLabel>()) {
        EXPECT_FALSE(isCutOff(*label))
            << sample.name << " at " << width << ": " << label->text().toStdString();
      }
      for (const char* name : {"Balance and settings", "Workers and history"}) {
        const auto* const column = find<QScrollArea>(name);
        EXPECT_TRUE(!column || column->horizontalScrollBar()->maximum() == 0)
            << sample.name << " at " << width << ": " << name;
      }
    }
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

/// The first and the last column of pixels that differ from the first, in the window's own.
std::pair<int, int> inkOf(const QTableView& table, int column) {
  const QRect cell = table.visualRect(table.model()->index(0, column)).adjusted(0, 0, 0, -2);
  const QImage image = table.viewport()->grab(cell).toImage();
  int first = image.width();
  int last = 0;
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) {
      if (image.pixel(x, y) == image.pixel(0, 0)) { continue; }
      first = std::min(first, x);
      last = x;
    }
  }
  const int left = table.viewport()->mapTo(table.window(), cell.topLeft()).x();
  return {left + first, left + last + 1};
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

/// Where the text of a label or of a control stands.
int baseline(const QWidget& text) {
  const QFontMetrics metrics(text.font());
  return text.mapTo(text.window(), QPoint()).y() + (text.height() - metrics.height()) / 2 +
         metrics.ascent();
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
