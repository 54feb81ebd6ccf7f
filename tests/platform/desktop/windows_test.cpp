#include "platform/desktop/desktop_fixture.h"

namespace orvane::test {
namespace {

class WindowsTest : public DesktopTest {
 protected:
  std::vector<WindowNotification> told;
  Registration observer =
      window.observe([this](const WindowNotification& heard) { told.push_back(heard); });
};

TEST_F(WindowsTest, AreListedInTheOrderOfTheirCreationWhetherShownOrNot) {
  auto& help = application.addWindow(titled("Orvane Help"));
  help.makeKeyAndOrderFront();
  ASSERT_EQ(application.windows(), (std::vector<DesktopWindow*>{&window, &help}));
  EXPECT_EQ(window.title(), "Orvane");
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(help.isVisible());
}

TEST_F(WindowsTest, AskTheirDelegateWhenTheWindowManagerClosesThemAndCanBeShownAgain) {
  window.setDelegate(delegate);
  bringUp();
  closeByWindowManager(widget);
  ASSERT_TRUE(QTest::qWaitFor([this] { return !delegate->heard.empty(); }));
  EXPECT_EQ(delegate->eventWhenAsked, std::nullopt);
  EXPECT_TRUE(window.isVisible());

  delegate->closes = true;
  closeByWindowManager(widget);
  ASSERT_TRUE(QTest::qWaitFor([this] { return !window.isVisible(); }));
  EXPECT_EQ(told.back(), WindowNotification::willClose);
  bringUp();
  EXPECT_TRUE(window.isKeyWindow());
}

TEST_F(WindowsTest, KeepPlaceSizeTextAndFocusWhileHidden) {
  bringUp();
  const QRect place(311, 173, 420, 333);
  widget.setGeometry(place);
  field.setFocus();
  field.setText(QStringLiteral("half a tok"));
  const auto isInPlace = [this, &place] { return widget.geometry() == place; };
  ASSERT_TRUE(QTest::qWaitFor(isInPlace));

  window.orderOut();
  QTest::qWait(50);  // what the window manager makes of it
  bringUp();
  EXPECT_TRUE(QTest::qWaitFor([this] { return field.hasFocus(); }));
  EXPECT_TRUE(isInPlace()) << widget.x() << ' ' << widget.y();
  EXPECT_EQ(field.text(), QStringLiteral("half a tok"));
}

TEST_F(WindowsTest, TellWhenTheyAreMinimisedByWhomeverAndComeBackWhole) {
  window.setDelegate(delegate);
  bringUp();
  xdotool({QStringLiteral("windowminimize"), windowId(widget)});
  ASSERT_TRUE(QTest::qWaitFor([this] { return window.isMiniaturized(); }));
  EXPECT_FALSE(window.isVisible());
  window.makeKeyAndOrderFront();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window.isKeyWindow(); }));
  EXPECT_EQ(delegate->heard, (std::vector<std::string>{"minimised", "restored"}));

  window.miniaturize();
  QTest::qWait(50);
  window.deminiaturize();
  window.orderOut();
  QTest::qWait(50);
  EXPECT_FALSE(widget.isVisible());
  window.makeKeyAndOrderFront();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window.isKeyWindow(); }));
}

TEST_F(WindowsTest, TakeTheFocusFromAnotherProgramForAPermissionToDoSo) {
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

}  // namespace
}  // namespace orvane::test
