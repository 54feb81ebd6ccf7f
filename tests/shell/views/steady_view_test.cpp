#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>

#include "shell/views/controls.h"
#include "shell/views/view_fixture.h"

namespace orvane::test {
namespace {

/// Counts the paintings of the widgets below one.
class PaintCounter final : public QObject {
 public:
  explicit PaintCounter(const QWidget& root) {
    for (auto* const child : root.findChildren<QWidget*>()) {
      child->installEventFilter(this);
    }
  }
  int paints = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) { ++paints; }
    return false;
  }
};

class SteadyViewTest : public ViewTest {
 protected:
  void SetUp() override {
    figures.workers = manyWorkers(40);
    show(figures);
    view->resize(1190, 700);
    settle();
  }
  void bringNewFigures() {
    figures.stats->balanceSats += 17;
    figures.workers = manyWorkers(45);
    fakes->bring(figures);
    settle();
    ASSERT_TRUE(label("128,220 sats"));
    ASSERT_TRUE(label("27 of 45 OK"));
  }

  BalanceState figures = everything();
};

TEST_F(SteadyViewTest, WhatIsBeingTypedSurvivesNewFigures) {
  auto& field = *find<QLineEdit>("Bitcoin address to watch");
  field.setFocus();
  field.setText(QStringLiteral("bc1q half"));
  field.setCursorPosition(3);
  bringNewFigures();
  EXPECT_TRUE(field.hasFocus());
  EXPECT_EQ(field.text(), QStringLiteral("bc1q half"));
  EXPECT_EQ(field.cursorPosition(), 3);
}

TEST_F(SteadyViewTest, ScrolledPlacesAndASelectedTextSurviveNewFigures) {
  auto& column = *find<QScrollArea>("Balance and settings")->verticalScrollBar();
  auto& table = *find<QTableView>("Workers")->verticalScrollBar();
  auto& address = *label(fakes->state().watchedAddress);
  column.setValue(60);
  table.setValue(300);
  address.setSelection(2, 9);
  bringNewFigures();
  EXPECT_EQ(column.value(), 60);
  EXPECT_EQ(table.value(), 300);
  EXPECT_EQ(address.selectedText().size(), 9);
}

TEST_F(SteadyViewTest, AnAnnouncementWithoutAChangeRepaintsNothing) {
  QTest::qWait(20);
  const PaintCounter counter(*view);
  fakes->store->setUnit(fakes->state().unit);
  settle();
  EXPECT_EQ(counter.paints, 0);
}

TEST_F(SteadyViewTest, ABusyButtonMovesAndGivesTheFocusBack) {
  auto& refresh = *dynamic_cast<RefreshButton*>(button("Refresh", "Watched address"));
  fakes->transport.on("").respond(500).after(std::chrono::seconds(5));
  refresh.setFocus();
  refresh.click();
  settle();
  EXPECT_FALSE(refresh.isEnabled());
  EXPECT_TRUE(refresh.isMoving());
  EXPECT_EQ(view->window()->focusWidget(), nullptr);
  fakes->executor.advance(std::chrono::seconds(5));
  settle();
  EXPECT_TRUE(refresh.hasFocus());
  EXPECT_FALSE(refresh.isMoving());
}

class CoalescedUpdateTest : public testing::Test {
 protected:
  int updatesAfterTurn() {
    QCoreApplication::processEvents();
    return std::exchange(updates, 0);
  }

  QWidget view;
  int updates = 0;
  CoalescedUpdate update{view, [this] { ++updates; }};
};

TEST_F(CoalescedUpdateTest, ManyAnnouncementsInOneTurnRedrawOnce) {
  view.show();
  update.request();
  update.request();
  EXPECT_EQ(updates, 0);
  EXPECT_EQ(updatesAfterTurn(), 1);
}

TEST_F(CoalescedUpdateTest, OutOfSightNothingIsRedrawnUntilTheViewShows) {
  view.show();
  view.hide();
  update.request();
  EXPECT_EQ(updatesAfterTurn(), 0);
  view.show();
  EXPECT_EQ(updatesAfterTurn(), 1);
}

}  // namespace
}  // namespace orvane::test
