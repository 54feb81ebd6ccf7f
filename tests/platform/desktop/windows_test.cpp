#include <QScreen>
#include "platform/desktop/desktop_fixture.h"

namespace orvane::test { namespace {

class WindowsTest : public DesktopTest {
 protected:
  /// As a user does it: the program has not asked for it.
  void user(const char* act, QStringList how) {
    QProcess::execute("xdotool", QStringList{act, QString::number(widget.winId())} + how);
  }
};

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
  user("windowmove", {"311", "173"});
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

TEST_F(WindowsTest, ComeBackAsTheUserLeftThemAndNotAsTheProgramDid) {
  ChosenPlacement kept;
  QtDesktopApplication::keepPlacement(window, {}, [&](const auto& chosen) { kept = chosen; });
  bringUp();
  widget.resize(400, 300);
  const auto isArranged = [&](const char* width) {
    user("windowsize", {width, "300"});
    user("windowmove", {"100", width});
    return QTest::qWaitFor([&] { return kept.centre.has_value(); }, 1000);
  };
  ASSERT_TRUE(isArranged("510") || isArranged("520")) << "once it has been left alone";
  const QRect left = widget.geometry();
  const ChosenPlacement expected{.width = left.width(), .height = {}, .centre = centreOf(left)};
  EXPECT_EQ(kept, expected);

  const auto display = X11Display::ofApplication();
  display->sendToWindowManager(static_cast<xcb_window_t>(widget.winId()), "_NET_WM_STATE",
                               {1, display->atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                                display->atom("_NET_WM_STATE_MAXIMIZED_HORZ")});
  display->flush();
  ASSERT_TRUE(QTest::qWaitFor([&] { return widget.isMaximized() && widget.width() > 600; }));
  window.orderOut();
  EXPECT_EQ(kept, expected);

  auto& next = application.addWindow(content());
  auto& nextWidget = QtDesktopApplication::widgetOf(next);
  nextWidget.resize(400, 300);
  QtDesktopApplication::keepPlacement(next, kept, {});
  next.makeKeyAndOrderFront();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&nextWidget));
  EXPECT_EQ(nextWidget.geometry(), left) << nextWidget.x() << ' ' << nextWidget.y();
}

TEST_F(WindowsTest, AppearWholeUnderAWindowManagerThatBoundsNothing) {
  for (const auto& kept :
       {ChosenPlacement{},
        ChosenPlacement{.width = 300, .height = 300, .centre = QPoint(9000, 9000)},
        ChosenPlacement{.width = 9000, .height = {}, .centre = QPoint(-20, -20)}}) {
    auto& each = application.addWindow(content());
    auto& shown = QtDesktopApplication::widgetOf(each);
    shown.resize(5000, 4000);
    QtDesktopApplication::keepPlacement(each, kept, {});
    each.makeKeyAndOrderFront();
    const auto workArea = shown.screen()->availableGeometry();
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return isPlaced(shown) && workArea.contains(shown.frameGeometry());
    })) << shown.frameGeometry().width()
        << ' ' << shown.frameGeometry().bottom();
  }
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
  user("windowminimize", {});
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
