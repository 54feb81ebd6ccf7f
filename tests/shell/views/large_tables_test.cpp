#include <QAbstractItemModel>
#include <QElapsedTimer>
#include <QIdentityProxyModel>
#include <QTableView>

#include "shell/views/content_fixture.h"

namespace orvane::test {
namespace {

/// Counts the rows that a table asks for.
class CountingModel final : public QIdentityProxyModel {
 public:
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole) { rows.insert(index.row()); }
    return QIdentityProxyModel::data(index, role);
  }
  mutable std::set<int> rows;
};

class LargeTables : public ContentTest {
 protected:
  void SetUp() override {
    auto large = everything();
    large.workers = manyWorkers(10'000);
    large.history = manyDays(20 * 365);
    show(std::move(large));
  }
};

TEST_F(LargeTables, AskOnlyForTheRowsInSight) {
  for (const auto* const name : {"Workers", "Daily history"}) {
    auto& table = *find<QTableView>(QString::fromLatin1(name));
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

TEST_F(LargeTables, RedrawWithinAFrameOrTwoWhenEveryFigureChanges) {
  for (auto& worker : state.workers) {
    worker.hashRate5m *= 1.01;
  }
  for (auto& day : state.history) {
    day.averageHashRate = 2e12;
  }
  QElapsedTimer clock;
  clock.start();
  content->showState();
  content->grab();
  // Far from what is measured, and far below what a user would notice as a halt.
  EXPECT_LT(clock.elapsed(), 500);
}

}  // namespace
}  // namespace orvane::test
