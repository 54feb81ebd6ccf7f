#include <QAccessible>
#include <QTableView>

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
    if (!child->isVisible() || !(child->focusPolicy() & Qt::TabFocus)) { continue; }
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
    if (at->nextInFocusChain() == first) { break; }
  }
  const auto expected = QStringLiteral(
                            "sats,Braiins API token,Remove,Workers,Daily history,"
                            "Close,Help and commands")
                            .split(u',');
  order.removeDuplicates();
  order.removeIf([&expected](const QString& name) { return !expected.contains(name); });
  EXPECT_EQ(order.join(u',').toStdString(), expected.join(u',').toStdString());
}

TEST_F(AccessibilityTest, TablesAreReadCellByCellWithTheirHeaders) {
  auto* const table =
      QAccessible::queryAccessibleInterface(find<QTableView>(QStringLiteral("Workers")));
  ASSERT_TRUE(table->tableInterface());
  EXPECT_EQ(table->tableInterface()->rowCount(), 6);
  EXPECT_EQ(table->tableInterface()->columnDescription(3), QStringLiteral("60 min"));
  EXPECT_EQ(table->tableInterface()->cellAt(0, 0)->text(QAccessible::Name), QStringLiteral("mac"));
}

}  // namespace
}  // namespace orvane::test
