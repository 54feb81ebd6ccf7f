#include <QIdentityProxyModel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>

#include "shell/view_models/window_contents.h"
#include "shell/views/view_fixture.h"

namespace orvane::test {
namespace {

class LayoutTest : public ViewTest {
 protected:
  void resize(int width) {
    view->setMinimumSize(0, 0);
    view->resize(width, 900);
    settle();
  }
};

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
      resize(width);
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
  resize(1600);
  EXPECT_EQ(find<QScrollArea>("Balance and settings")->width(), 500);
  show(watchedAddress());
  resize(1600);
  EXPECT_EQ(find<QScrollArea>("Balance and settings")->width(), 1600);
}

/// Counts the rows that a table asks for.
class CountingModel final : public QIdentityProxyModel {
 public:
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole) { rows.insert(index.row()); }
    return QIdentityProxyModel::data(index, role);
  }
  mutable std::set<int> rows;
};

TEST_F(LayoutTest, LargeTablesAskOnlyForTheRowsInSight) {
  auto figures = everything();
  figures.workers = manyWorkers(10'000);
  figures.history = manyDays(20 * 365);
  show(figures);
  for (const char* name : {"Workers", "Daily history"}) {
    auto& table = *find<QTableView>(name);
    CountingModel counting;
    counting.setSourceModel(table.model());
    table.setModel(&counting);
    table.scrollToBottom();
    table.grab();
    EXPECT_GT(counting.rows.size(), 3U) << name;
    EXPECT_LT(counting.rows.size(), 60U) << name;
    EXPECT_TRUE(counting.rows.contains(counting.rowCount() - 1)) << name;
    table.setModel(counting.sourceModel());
  }
}

}  // namespace
}  // namespace orvane::test
