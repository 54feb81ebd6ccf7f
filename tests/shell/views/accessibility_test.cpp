#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "shell/views/content_fixture.h"

namespace orvane::test {
namespace {

class AccessibilityTest : public ContentTest {
 protected:
  void SetUp() override { show(everything()); }
};

TEST_F(AccessibilityTest, EverythingThatTakesTheFocusHasANameAndARole) {
  int reached = 0;
  for (auto* const child : content->findChildren<QWidget*>()) {
    if (!child->isVisible() || !(child->focusPolicy() & Qt::TabFocus)) continue;
    ++reached;
    const auto* const spoken = QAccessible::queryAccessibleInterface(child);
    ASSERT_TRUE(spoken);
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << child->metaObject()->className();
    EXPECT_NE(spoken->role(), QAccessible::NoRole) << child->metaObject()->className();
  }
  EXPECT_GT(reached, 10);
}

TEST_F(AccessibilityTest, TabGoesFromTheCardsThroughTheSettingsToTheTablesAndTheBar) {
  QStringList order;
  auto* const first = content->nextInFocusChain();
  for (auto* at = first; at; at = at->nextInFocusChain()) {
    if (at->isVisible() && (at->focusPolicy() & Qt::TabFocus)) {
      order.append(QAccessible::queryAccessibleInterface(at)->text(QAccessible::Name));
    }
    if (at->nextInFocusChain() == first) break;
  }
  QStringList landmarks;
  for (const auto& name : order) {
    for (const auto* const mark : {"sats", "Braiins API token", "Remove", "Workers",
                                   "Daily history", "Close", "Help and commands"}) {
      if (name == QLatin1String(mark) && !landmarks.contains(name)) landmarks.append(name);
    }
  }
  const QStringList expected{QStringLiteral("sats"),
                             QStringLiteral("Braiins API token"),
                             QStringLiteral("Remove"),
                             QStringLiteral("Workers"),
                             QStringLiteral("Daily history"),
                             QStringLiteral("Close"),
                             QStringLiteral("Help and commands")};
  EXPECT_EQ(landmarks.join(u',').toStdString(), expected.join(u',').toStdString())
      << order.join(u',').toStdString();
}

TEST_F(AccessibilityTest, TheTokenIsNeverReadOut) {
  auto& field = *find<QLineEdit>(QStringLiteral("Braiins API token"));
  ASSERT_EQ(field.text(), QString::fromStdString(state.token));
  const auto* const spoken = QAccessible::queryAccessibleInterface(&field);
  EXPECT_TRUE(spoken->state().passwordEdit);
  EXPECT_FALSE(spoken->text(QAccessible::Value).contains(field.text()));
}

TEST_F(AccessibilityTest, TablesAreReadCellByCellWithTheirHeaders) {
  auto* const table =
      QAccessible::queryAccessibleInterface(find<QTableView>(QStringLiteral("Workers")));
  ASSERT_TRUE(table->tableInterface());
  EXPECT_EQ(table->tableInterface()->rowCount(), 6);
  EXPECT_EQ(table->tableInterface()->columnDescription(3), QStringLiteral("60 min"));
  EXPECT_EQ(table->tableInterface()->cellAt(0, 0)->text(QAccessible::Name), QStringLiteral("mac"));
}

TEST_F(AccessibilityTest, TheKeyboardClosesTheWindow) {
  QTest::keyClick(content->windowHandle(), Qt::Key_Escape);
  EXPECT_EQ(closes, 1);
}

}  // namespace
}  // namespace orvane::test
