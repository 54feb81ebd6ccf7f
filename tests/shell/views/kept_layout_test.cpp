#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

class KeptLayoutTest : public ViewTest {
 protected:
  [[nodiscard]] QTableView& table() const { return *find<QTableView>("Daily history"); }
  [[nodiscard]] std::vector<int> widths() const {
    std::vector<int> widths;
    for (int column = 0; column < 4; ++column) {
      widths.push_back(table().columnWidth(column));
    }
    return widths;
  }
  /// Drags the edge of a column sideways.
  void drag(int column, int by) {
    auto* const header = table().horizontalHeader();
    const QPoint edge(header->sectionViewportPosition(column) + header->sectionSize(column) - 1, 9);
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseMove(header->viewport(), edge + QPoint(by, 0));
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(by, 0));
  }
  void open() {
    show(everything());
    resize(1600, 900);
  }
};

TEST_F(KeptLayoutTest, WidthsThatTheUserGaveToColumnsComeBackWithRoomForEveryFigure) {
  open();
  const auto shared = widths();
  open();
  EXPECT_EQ(widths(), shared);
  EXPECT_EQ(defaults.texts("history.columnWidths"), std::nullopt) << "nobody has chosen them";

  drag(0, 60);
  const auto chosen = widths();
  EXPECT_EQ(chosen.at(0), shared.at(0) + 60);
  EXPECT_EQ(chosen.at(3), shared.at(3) - 60);
  open();
  EXPECT_EQ(widths(), chosen);
  resize(1190, 900);
  EXPECT_EQ(table().horizontalScrollBar()->maximum(), 0);
  resize(1600, 900);
  EXPECT_EQ(widths(), chosen);

  drag(1, 5 - table().columnWidth(1));
  drag(2, table().columnWidth(3) - 5);
  for (const int column : {1, 3}) {
    EXPECT_GE(table().columnWidth(column), table().horizontalHeader()->sectionSizeHint(column));
  }
  EXPECT_EQ(table().horizontalScrollBar()->maximum(), 0);
  const std::vector<std::vector<std::string>> damagedLists{
      {"300"}, {"300", "300", "x"}, {"300", "-1", "300"}, {"300", "300", "99999999999"}};
  for (const auto& damaged : damagedLists) {
    view->hide();
    defaults.setTexts("history.columnWidths", damaged);
    open();
    EXPECT_EQ(widths(), shared) << damaged.back();
  }
}

}}  // namespace orvane::test
