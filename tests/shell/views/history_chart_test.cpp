#include "shell/views/history_chart.h"
#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

class HistoryChartTest : public ViewTest {
 protected:
  /// Chooses the picture, of the thirty days 17 October to 15 November; of them the pool lists
  /// neither figure for 12 and 1 November and 21 October.
  void showChart() {
    show(everything());
    button("Chart").click();
    button("30 days").click();
    settle();
    chart = view->findChild<HistoryChart*>();
    ASSERT_TRUE(chart->isVisible());
  }
  QRadioButton& button(const char* text) {
    const auto all = visible<QRadioButton>();
    return **std::ranges::find(all, QString::fromLatin1(text), &QRadioButton::text);
  }
  HistoryChart* chart = nullptr;
};

TEST_F(HistoryChartTest, IsChosenInTheTablesPlaceAndStaysChosen) {
  show(everything());
  EXPECT_TRUE(button("Table").isChecked() && find<QTableView>("Daily history"));
  showChart();
  EXPECT_FALSE(find<QTableView>("Daily history"));
  const StoredSettings kept(fakes->defaults);
  EXPECT_EQ(kept.historyView(), HistoryView::chart);
  EXPECT_EQ(kept.historySpan(), HistorySpan::days30);
}

TEST_F(HistoryChartTest, KeysAndPointerMoveFromDayToDayAndAScreenReaderHearsIt) {
  showChart();
  auto* const reader = QAccessible::queryAccessibleInterface(chart);
  const auto isAt = [this, reader](const char* date) {
    const auto read = reader->child(chart->currentIndex().row())->text(QAccessible::Name);
    return read.startsWith(QString::fromUtf8(date)) && label(read.toStdString());
  };
  EXPECT_TRUE(isAt("Nov 15, 2026 · 4,000 sats · 3.36 € at today's price · 91.00 TH/s"));
  chart->actions().constFirst()->trigger();
  EXPECT_TRUE(label(QGuiApplication::clipboard()->text().toStdString()));
  const std::pair<Qt::Key, const char*> moves[] = {
      {Qt::Key_Left, "Nov 14"},  {Qt::Key_Home, "Oct 17"},     {Qt::Key_Left, "Oct 17"},
      {Qt::Key_Right, "Oct 18"}, {Qt::Key_PageDown, "Nov 15"}, {Qt::Key_PageUp, "Oct 17"},
      {Qt::Key_End, "Nov 15"}};
  for (const auto& [key, date] : moves) {
    QTest::keyClick(chart, key);
    EXPECT_TRUE(isAt(date)) << date;
  }
  const auto place = chart->visualRect(chart->model()->index(3, 0)).center();
  QTest::mouseMove(chart->viewport(), place);
  settle();
  EXPECT_TRUE(isAt("Oct 20"));
}

TEST_F(HistoryChartTest, LooksTheSameInWindowsFromRightToLeft) {
  std::vector<QImage> looks;
  for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) {
    QApplication::setLayoutDirection(direction);
    showChart();
    resize(1190, 990);
    for (QWidget* const each : {chart->viewport(), static_cast<QWidget*>(&button("30 days"))}) {
      looks.push_back(each->grab().toImage());
    }
  }
  EXPECT_EQ(looks[0], looks[2]);
  EXPECT_EQ(looks[1], looks[3]);
}

TEST_F(HistoryChartTest, DrawsBarsFromZeroAndNoneWhereThereIsNoReward) {
  showChart();
  const auto picture = chart->viewport()->grab().toImage();
  const auto ground = theme::markColor(theme::MarkColor::green, chart->palette());
  const auto height = [&](int row) {
    const auto place = chart->visualRect(chart->model()->index(row, 0));
    int tall = 0;
    for (int y = place.top(); y < place.bottom(); ++y) {
      tall += picture.pixelColor(place.center().x(), y) == ground ? 1 : 0;
    }
    return static_cast<double>(tall) / place.height();
  };
  EXPECT_NEAR(height(29), 4000.0 / 5000, 0.02);
  EXPECT_NEAR(height(0), 4377.0 / 5000, 0.03);
  EXPECT_EQ(height(26), 0);  // 12 November
}

}}  // namespace orvane::test
