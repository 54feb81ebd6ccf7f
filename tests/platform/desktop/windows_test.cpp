#include "platform/desktop/desktop_fixture.h"

namespace orvane::test { namespace {

using WindowsTest = DesktopTest;

TEST_F(WindowsTest, AskTheirDelegateWhenTheWindowManagerClosesThemAndCanBeShownAgain) {
  const auto pressCloseControl = [this] {
    const auto display = X11Display::ofApplication();
    display->sendToWindowManager(static_cast<xcb_window_t>(widget.winId()), "_NET_CLOSE_WINDOW",
                                 {});
    display->flush();
  };
  window.setDelegate(delegate);
  bringUp();
  pressCloseControl();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !delegate->heard.empty(); }));
  EXPECT_EQ(delegate->eventWhenAsked, std::nullopt);
  EXPECT_TRUE(window.isVisible());
  delegate->closes = true;
  pressCloseControl();
  ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isVisible(); }));
  bringUp();
}

TEST_F(WindowsTest, DoNotHoldUpTheEndOfTheSessionByRefusingToClose) {
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

TEST_F(WindowsTest, KeepPlaceSizeAndFocusWhileHidden) {
  bringUp();
  const QRect place(311, 173, 420, 333);
  widget.setGeometry(place);
  field.setFocus();
  const auto isInPlace = [this, &place] { return widget.geometry() == place; };
  ASSERT_TRUE(QTest::qWaitFor(isInPlace));

  window.orderOut();
  QTest::qWait(50);  // what the window manager makes of it
  bringUp();
  EXPECT_TRUE(QTest::qWaitFor([this] { return field.hasFocus(); }));
  EXPECT_TRUE(isInPlace()) << widget.x() << ' ' << widget.y();
}

TEST_F(WindowsTest, TellWhenTheyAreMinimisedByWhomeverAndComeBackWhole) {
  window.setDelegate(delegate);
  bringUp();
  QProcess::execute("xdotool", {"windowminimize", QString::number(widget.winId())});
  ASSERT_TRUE(QTest::qWaitFor([this] { return window.isMiniaturized(); }));
  EXPECT_FALSE(window.isVisible());
  bringUp();
  EXPECT_EQ(delegate->heard, (std::vector<std::string>{"minimised", "restored"}));

  window.miniaturize();
  window.deminiaturize();
  window.orderOut();
  QTest::qWait(50);  // what the window manager makes of it
  EXPECT_FALSE(widget.isVisible());
}

TEST_F(WindowsTest, TakeTheFocusFromAnotherProgramForAPermissionToDoSo) {
  bringUp();
  QProcess other;
  other.start("xlogo", QStringList());
  ASSERT_TRUE(QTest::qWaitFor([&] { return !window.isKeyWindow(); })) << "xlogo takes no focus";
  application.setActivationToken("panel-1-host_TIME1");
  application.activateIgnoringOtherApps();
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.isKeyWindow(); }));
  other.kill();
  other.waitForFinished();
}

TEST(StartupTime, IsReadFromTheEndOfAStartupId) {
  struct Case {
    const char* token;
    unsigned time;
  };
  for (const auto& [token, time] :
       {Case{"", 0}, Case{"panel-12-host_TIME4711", 4711}, Case{"_TIME_TIME7", 7},
        Case{"wayland-token", 0}, Case{"x_TIME99999999999", 0}}) {
    EXPECT_EQ(startupTime(token), time) << token;
  }
}

}}  // namespace orvane::test
