#include "platform/desktop/qt/color_scheme.h"
#include <QApplication>
#include <QPushButton>
#include <QStyle>
#include <QTest>
#include <gtest/gtest.h>
#include "platform/color/contrast.h"
#include "platform/eventloop/qt_executor.h"
#include "support/fake_portal.h"

namespace orvane::test { namespace {

bool isApplicationDark() { return isDark(QApplication::palette()); }

TEST(ColorScheme, FollowsThePortalWhileTheProgramRuns) {
  FakePortal portal(1);
  QtExecutor executor;
  SessionBus bus(executor);
  bool isHigher = false;
  const ColorScheme scheme(bus, [&isHigher](bool isWished) { isHigher = isWished; });
  EXPECT_FALSE(isApplicationDark());  // nothing waits for the answer
  ASSERT_TRUE(QTest::qWaitFor(isApplicationDark));
  for (const uint preference : {0U, 1U, 2U}) {
    portal.prefer(preference);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isApplicationDark() == (preference == 1); }))
        << preference;
  }
  const auto gnome = "org.gnome.desktop.a11y.interface";
  for (const auto& [group, key, value, isWished] :
       {std::tuple(FakePortal::appearance, "contrast", QVariant(1U), true),
        {FakePortal::appearance, "contrast", QVariant(0U), false},
        {gnome, "high-contrast", QVariant(true), true},
        {gnome, "high-contrast", QVariant(false), false}}) {
    portal.set(group, key, value);
    EXPECT_TRUE(QTest::qWaitFor([&, wanted = isWished] { return isHigher == wanted; })) << key;
  }
}

TEST(ColorScheme, LeavesThePaletteAloneWithoutAPortal) {
  const auto before = QApplication::palette();
  QtExecutor executor;
  SessionBus bus(executor);
  const ColorScheme scheme(bus, [](bool) {});
  QTest::qWait(50);
  EXPECT_EQ(QApplication::palette(), before);
}

// Buttons were white on white in the dark where the style has colours of its own.
TEST(ApplicationLook, AStyleThatIgnoresPalettesGivesWayAndComesBack) {
  using enum ColorPreference;
  const auto before = QApplication::style()->name();
  for (const auto& [users, preference, expected] : {std::tuple("fusion", dark, "fusion dark"),
                                                    {"stubborn", dark, "stubborn-dark dark"},
                                                    {"stubborn", light, "stubborn light"},
                                                    {"stubborn-dark", light, "stubborn light"},
                                                    {"stubborn-dark", none, "stubborn-dark dark"},
                                                    {"lone", dark, "fusion dark"}}) {
    QApplication::setStyle(users);
    ApplicationLook look;
    for (const bool again : {false, true}) {
      look.follow(preference);
      const QString drawn =
          QApplication::style()->name() + (isApplicationDark() ? " dark" : " light");
      EXPECT_EQ(drawn, expected) << users << again;
      QPushButton button;
      button.resize(60, 30);
      const auto middle = button.grab().toImage().pixelColor(30, 15);
      EXPECT_GT(contrast(middle, button.palette().color(QPalette::ButtonText)), 4.5) << users;
    }
    look.follow(none);
    EXPECT_EQ(QApplication::style()->name(), users);
  }
  QApplication::setStyle(before);
}

}}  // namespace orvane::test
