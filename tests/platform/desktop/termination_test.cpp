#include <QCoreApplication>
#include <csignal>

#include "platform/desktop/desktop_fixture.h"
#include "platform/desktop/qt/termination_signals.h"

namespace orvane::test {
namespace {

TEST(Termination, ByASignalArrivesInTheEventLoop) {
  int heard = 0;
  const TerminationSignals signalsHeard([&heard] { ++heard; });
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
    heard = 0;
    ASSERT_EQ(raise(number), 0);
    EXPECT_EQ(heard, 0);
    EXPECT_TRUE(QTest::qWaitFor([&heard] { return heard == 1; })) << number;
  }
}

using TerminationTest = DesktopTest;

TEST_F(TerminationTest, ByTheSessionDoesNotDependOnWindowsThatRefuseToClose) {
  int ends = 0;
  application.setTerminationHandler([&ends] { ++ends; });
  window.setDelegate(delegate);
  bringUp();
  QEvent die(QEvent::Quit);  // what a session manager's last word comes down to
  QCoreApplication::sendEvent(QCoreApplication::instance(), &die);
  EXPECT_EQ(ends, 0);
  EXPECT_TRUE(QTest::qWaitFor([&ends] { return ends == 1; }));
  EXPECT_TRUE(delegate->heard.empty());
}

}  // namespace
}  // namespace orvane::test
