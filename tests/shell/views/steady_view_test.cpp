#include <QAccessible>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include "shell/views/controls.h"
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

using SteadyViewTest = ViewTest;

TEST_F(SteadyViewTest, WhatTheUserHasInHandSurvivesNewFigures) {
  auto figures = everything();
  figures.workers = manyWorkers(140);
  show(figures);
  resize(1190, 700);
  auto& field = *find<QLineEdit>("Bitcoin address to watch");
  auto& column = *find<QScrollArea>("Balance and settings")->verticalScrollBar();
  auto& table = *find<QTableView>("Workers")->verticalScrollBar();
  auto& address = *label(fakes->state().watchedAddress);
  field.setFocus();
  field.setText(QStringLiteral("bc1q half"));
  field.setCursorPosition(3);
  column.setValue(60);
  table.setValue(300);
  address.setSelection(2, 9);
  figures.stats->balanceSats += 17;
  figures.workers = manyWorkers(145);
  fakes->bring(figures);
  settle();
  ASSERT_TRUE(label("128,220 sats"));
  ASSERT_TRUE(label("87 of 145 OK"));
  EXPECT_TRUE(field.hasFocus());
  EXPECT_EQ(field.text(), QStringLiteral("bc1q half"));
  EXPECT_EQ(field.cursorPosition(), 3);
  EXPECT_EQ(column.value(), 60);
  EXPECT_EQ(table.value(), 300);
  EXPECT_EQ(address.selectedText().size(), 9);
}

struct PaintCounter final : QObject {
  PaintCounter() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) { ++paints; }
    return false;
  }
  int paints = 0;
};

TEST_F(SteadyViewTest, AnAnnouncementWithoutAChangeRepaintsNothing) {
  show(everything());
  PaintCounter counter;
  do {  // until the window has come up, which takes its time on a busy machine
    counter.paints = 0;
    QTest::qWait(20);
  } while (counter.paints > 0);
  fakes->store->setUnit(fakes->state().unit);
  settle();
  EXPECT_EQ(counter.paints, 0);
}

TEST_F(SteadyViewTest, ABusyButtonMovesKeepsTheFocusAndIsDeafToPresses) {
  show(everything());
  auto& refresh = *dynamic_cast<RefreshButton*>(button("Refresh", "Watched address"));
  fakes->transport.on("").respond(500).after(std::chrono::seconds(5));
  refresh.setFocus();
  refresh.click();
  settle();
  const auto sent = fakes->transport.sent().size();
  QTest::keyClick(&refresh, Qt::Key_Space);
  QTest::mouseClick(&refresh, Qt::LeftButton);
  settle();
  EXPECT_EQ(fakes->transport.sent().size(), sent);
  EXPECT_TRUE(refresh.hasFocus());
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&refresh)->state().busy);
  EXPECT_TRUE(refresh.isMoving());
  fakes->executor.advance(std::chrono::seconds(5));
  settle();
  EXPECT_TRUE(refresh.hasFocus());
  EXPECT_FALSE(refresh.isMoving());
}

struct CoalescedUpdateTest : testing::Test {
  QWidget view;
  int updates = 0;
  CoalescedUpdate update{view, [this] { ++updates; }};
};

TEST_F(CoalescedUpdateTest, ManyAnnouncementsInOneTurnRedrawOnce) {
  view.show();
  update.request();
  update.request();
  EXPECT_EQ(updates, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(updates, 1);
}

TEST_F(CoalescedUpdateTest, OutOfSightNothingIsRedrawnUntilTheViewShows) {
  update.request();
  QCoreApplication::processEvents();
  EXPECT_EQ(updates, 0);
  view.show();
  EXPECT_EQ(updates, 1);
}

}}  // namespace orvane::test
