#include <QAccessible>

#include "shell/views/view_fixture.h"

namespace orvane::test {
namespace {

using AccessibilityTest = ViewTest;

TEST_F(AccessibilityTest, TabGoesFromTheCardsToTheBarAndEveryStationHasAName) {
  show(everything());
  const QStringList landmarks{QStringLiteral("sats"),
                              QStringLiteral("Braiins API token"),
                              QStringLiteral("Remove"),
                              QStringLiteral("Workers"),
                              QStringLiteral("Daily history"),
                              QStringLiteral("Close"),
                              QStringLiteral("Help and commands")};
  QStringList passed;
  auto* at = view->nextInFocusChain();
  do {
    if (at->isVisible() && (at->focusPolicy() & Qt::TabFocus)) {
      auto* const spoken = QAccessible::queryAccessibleInterface(at);
      const auto name = spoken->text(QAccessible::Name);
      EXPECT_FALSE(name.isEmpty()) << at->metaObject()->className();
      EXPECT_NE(spoken->role(), QAccessible::NoRole) << at->metaObject()->className();
      if (landmarks.contains(name)) { passed.append(name); }
    }
    at = at->nextInFocusChain();
  } while (at != view->nextInFocusChain());
  passed.removeDuplicates();
  EXPECT_EQ(passed.join(u',').toStdString(), landmarks.join(u',').toStdString());
}

}  // namespace
}  // namespace orvane::test
