#include "platform/desktop/qt/activation.h"

#include "platform/desktop/desktop_fixture.h"

namespace orvane::test {
namespace {

using ActivationTest = DesktopTest;

TEST(StartupTime, IsReadFromTheEndOfAStartupId) {
  struct Case {
    const char* token;
    unsigned time;
  };
  for (const auto& [token, time] :
       {Case{"", 0}, Case{"panel-12-host_TIME4711", 4711}, Case{"_TIME_TIME7", 7},
        Case{"wayland-token", 0}, Case{"x_TIME", 0}, Case{"x_TIME99999999999", 0}}) {
    EXPECT_EQ(startupTime(token), time) << token;
  }
}

TEST_F(ActivationTest, TakesTheFocusFromAnotherProgram) {
  bringUp();
  QProcess other;
  other.start(QStringLiteral("xlogo"), QStringList());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !window.isKeyWindow(); })) << "xlogo takes no focus";
  application.setActivationToken("panel-1-host_TIME1");
  application.activateIgnoringOtherApps();
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.isKeyWindow(); }));
  other.kill();
  other.waitForFinished();
}

}  // namespace
}  // namespace orvane::test
