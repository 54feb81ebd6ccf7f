#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "shell/views/content_fixture.h"
#include "shell/views/labels.h"

namespace orvane::test {
namespace {

/// Counts what is asked of the widgets below an object.
class EventCounter final : public QObject {
 public:
  explicit EventCounter(QWidget& root) {
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

class SteadyView : public ContentTest {
 protected:
  void SetUp() override {
    show(everything());
    content->resize(1190, 700);
    QCoreApplication::processEvents();
  }
  /// Everything that a refresh brings.
  void newFigures() {
    state.stats->balanceSats += 17;
    state.addressSummary->confirmedSats += 21;
    for (auto& worker : state.workers) {
      worker.hashRate5m *= 1.01;
    }
    state.history.insert(state.history.begin(), state.history.front());
    update();
  }
};

TEST_F(SteadyView, TypedTextFocusScrollingAndSelectionSurviveNewFigures) {
  auto& field = *find<QLineEdit>(QStringLiteral("Bitcoin address to watch"));
  field.setFocus();
  field.setText(QStringLiteral("bc1q half"));
  field.setCursorPosition(3);
  auto& column = *find<QScrollArea>(QStringLiteral("Balance and settings"))->verticalScrollBar();
  auto& table = *find<QTableView>(QStringLiteral("Daily history"))->verticalScrollBar();
  column.setValue(60);
  table.setValue(900);
  ASSERT_EQ(column.value(), 60);
  ASSERT_EQ(table.value(), 900);
  TextLabel* address = nullptr;
  for (auto* const label : content->findChildren<TextLabel*>()) {
    if (label->text() == QString::fromStdString(state.watchedAddress)) { address = label; }
  }
  ASSERT_TRUE(address);
  address->setSelection(2, 9);
  newFigures();
  EXPECT_TRUE(field.hasFocus());
  EXPECT_EQ(field.text(), QStringLiteral("bc1q half"));
  EXPECT_EQ(field.cursorPosition(), 3);
  EXPECT_EQ(column.value(), 60);
  EXPECT_EQ(table.value(), 900);
  EXPECT_EQ(address->selectedText().size(), 9);
}

TEST_F(SteadyView, AnUnchangedStateRepaintsNothing) {
  QTest::qWait(20);
  const EventCounter counter(*content);
  update();
  EXPECT_EQ(counter.paints, 0);
}

TEST_F(SteadyView, ABusyButtonMovesAndGivesTheFocusBack) {
  RefreshButton* button = nullptr;
  for (auto* const each : content->findChildren<RefreshButton*>()) {
    if (each->isVisible() && !button) { button = each; }
  }
  ASSERT_TRUE(button);
  button->setFocus();
  state.isRefreshing = true;
  update();
  EXPECT_FALSE(button->isEnabled());
  EXPECT_TRUE(button->isMoving());
  EXPECT_EQ(content->window()->focusWidget(), nullptr);
  state.isRefreshing = false;
  update();
  EXPECT_TRUE(button->hasFocus());
  EXPECT_FALSE(button->isMoving());
}

}  // namespace
}  // namespace orvane::test
