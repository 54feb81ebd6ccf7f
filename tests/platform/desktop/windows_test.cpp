#include <QScreen>
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
  const auto place = [this] {
    return X11Display::ofApplication()->areaOf(static_cast<xcb_window_t>(widget.winId()));
  };
  // As a user moves it: the program has not asked for this place.
  const QRect before = place();
  QProcess::execute("xdotool", {"windowmove", QString::number(widget.winId()), "311", "173"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return widget.geometry().topLeft() == QPoint(311, 173); }));
  const QRect moved = place();
  EXPECT_NE(moved, before);
  field.setFocus();

  window.orderOut();
  QTest::qWait(50);  // what the window manager makes of it
  bringUp();
  EXPECT_TRUE(QTest::qWaitFor([this] { return field.hasFocus(); }));
  EXPECT_EQ(place(), moved) << place().x() << ' ' << place().y();
}

TEST_F(WindowsTest, AppearWholeUnderAWindowManagerThatBoundsNothing) {
  widget.resize(5000, 4000);
  bringUp();
  const auto workArea = widget.screen()->availableGeometry();
  EXPECT_TRUE(QTest::qWaitFor([&] { return workArea.contains(widget.frameGeometry()); }))
      << widget.frameGeometry().width() << ' ' << widget.frameGeometry().bottom();
}

TEST(WindowPlacement, CountsFramesAndPanels) {
  const WindowRoom room{.workArea = {0, 30, 1366, 708}, .frame = {2, 25, 2, 5}};
  const QRect left(2, 60, 640, 600);
  const QRect halfOff(-300, 400, 640, 600);
  const auto returning = [&](const QRect& workArea) {
    return placeToReturnTo(room, {.place = halfOff, .workArea = workArea});
  };
  struct Case {
    const char* name;
    QRect is;
    QRect expected;
  };
  for (const auto& [name, is, expected] :
       {Case{"fits", placeWithin(room, left), left},
        Case{"too large", placeWithin(room, {-9, -9, 2000, 900}), {2, 55, 1362, 678}},
        Case{"too far", placeWithin(room, {1300, 700, 640, 600}), {724, 133, 640, 600}},
        Case{"grows", grownAboutCentre(room, {300, 60, 640, 600}, {840, 640}), {200, 55, 840, 640}},
        Case{"grows at the edge", grownAboutCentre(room, left, {1190, 600}), {2, 60, 1190, 600}},
        Case{"returns", returning(room.workArea), halfOff},
        Case{"another screen", returning({0, 0, 1920, 1200}), {2, 133, 640, 600}}}) {
    EXPECT_EQ(is, expected) << name << ": " << is.x() << ' ' << is.y() << ' ' << is.width() << ' '
                            << is.height();
  }
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

TEST_F(WindowsTest, AskToBeActivatedAtTheServersTime) {
  const std::uint32_t before = X11Display::currentTime();
  EXPECT_GT(before, 0U);
  QTest::qWait(5);
  EXPECT_GT(X11Display::currentTime(), before);
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
