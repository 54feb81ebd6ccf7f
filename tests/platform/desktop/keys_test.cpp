#include <QMenu>
#include <QShortcut>
#include <QWindow>
#include <gmock/gmock.h>
#include "platform/desktop/desktop_fixture.h"

namespace orvane::test { namespace {

using testing::ElementsAre;

class KeysTest : public DesktopTest {
 protected:
  void SetUp() override {
    window.setDelegate(delegate);
    bringUp();
    field.setFocus();
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(widget.windowHandle(), key, modifiers);
  }

  Registration monitor(const char* name, KeyDecision decision) {
    return application.addKeyDownMonitor([this, name, decision](const DesktopEvent& event) {
      asked.emplace_back(name + event.charactersIgnoringModifiers);
      return decision;
    });
  }

  std::vector<std::string> asked;
};

TEST_F(KeysTest, AreSeenByMonitorsInOrderOnceEachAndThenByTheField) {
  const auto first = monitor("1", KeyDecision::passOn);
  const auto second = monitor("2", KeyDecision::passOn);
  press(Qt::Key_A);
  press(Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_THAT(asked, ElementsAre("1a", "2a", "1b", "2b"));
  EXPECT_EQ(field.text(), QStringLiteral("a"));
}

TEST_F(KeysTest, ThatAMonitorSwallowsReachNeitherLaterMonitorsNorShortcutsNorTheField) {
  QShortcut shortcut(QKeySequence(Qt::Key_Escape), &field);
  int activated = 0;
  QObject::connect(&shortcut, &QShortcut::activated, [&activated] { ++activated; });
  {
    const auto first = monitor("1", KeyDecision::swallow);
    const auto second = monitor("2", KeyDecision::passOn);
    press(Qt::Key_Escape);
    press(Qt::Key_A);
    EXPECT_THAT(asked, ElementsAre("1\x1b", "1a"));
    EXPECT_EQ(activated, 0);
    EXPECT_EQ(field.text(), QString());
  }
  press(Qt::Key_Escape);
  EXPECT_EQ(activated, 1);
  EXPECT_EQ(asked.size(), 2U);
}

TEST_F(KeysTest, OfAnOpenMenuAreItsOwn) {
  const auto first = monitor("1", KeyDecision::swallow);
  QMenu menu;
  menu.addAction(QStringLiteral("Copy"));
  menu.popup(field.mapToGlobal(QPoint(5, 5)));
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
  QTest::keyClick(menu.windowHandle(), Qt::Key_Escape);
  EXPECT_FALSE(menu.isVisible());
  EXPECT_TRUE(asked.empty());
}

TEST_F(KeysTest, ControlWAsksTheDelegateAndNamesTheKey) {
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_THAT(delegate->heard, ElementsAre("should close"));
  ASSERT_TRUE(delegate->eventWhenAsked);
  EXPECT_EQ(delegate->eventWhenAsked->charactersIgnoringModifiers, "w");
  EXPECT_EQ(delegate->eventWhenAsked->modifiers, ModifierFlags{.control = true});
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(application.currentEvent(), std::nullopt);
}

TEST_F(KeysTest, HeldDownActOnceAndWriteOn) {
  const auto hold = [this](Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
    press(key, modifiers);
    QKeyEvent repeat(QEvent::KeyPress, key, modifiers, text, true);
    QCoreApplication::sendEvent(widget.windowHandle(), &repeat);
  };
  hold(Qt::Key_W, Qt::ControlModifier, {});
  EXPECT_THAT(delegate->heard, ElementsAre("should close"));
  hold(Qt::Key_A, {}, QStringLiteral("a"));
  EXPECT_EQ(field.text(), QStringLiteral("aa"));
}

TEST_F(KeysTest, ControlMMinimisesAndControlQTerminates) {
  int ends = 0;
  application.setTerminationHandler([&ends] { ++ends; });
  press(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_TRUE(QTest::qWaitFor([&ends] { return ends == 1; }));
  press(Qt::Key_M, Qt::ControlModifier);
  EXPECT_TRUE(window.isMiniaturized());
}

}}  // namespace orvane::test
