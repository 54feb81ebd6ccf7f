#include "platform/desktop/qt/color_scheme.h"
#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>
#include "platform/eventloop/qt_executor.h"
#include "support/fake_portal.h"

namespace orvane::test { namespace {

bool isDark() {
  const auto palette = QApplication::palette();
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

TEST(ColorScheme, FollowsThePortalWhileTheProgramRuns) {
  FakePortal portal(1);
  QtExecutor executor;
  SessionBus bus(executor);
  const ColorScheme scheme(bus);
  EXPECT_FALSE(isDark());  // nothing waits for the answer
  ASSERT_TRUE(QTest::qWaitFor(isDark));
  for (const uint preference : {0U, 1U, 2U}) {
    portal.prefer(preference);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isDark() == (preference == 1); })) << preference;
  }
}

TEST(ColorScheme, LeavesThePaletteAloneWithoutAPortal) {
  const auto before = QApplication::palette();
  QtExecutor executor;
  SessionBus bus(executor);
  const ColorScheme scheme(bus);
  QTest::qWait(50);
  EXPECT_EQ(QApplication::palette(), before);
}

}}  // namespace orvane::test
