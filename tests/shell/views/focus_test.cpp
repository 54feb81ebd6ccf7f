#include <QLineEdit>
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

/// Where the keyboard is, and what it finds there.
class FocusTest : public ViewTest {
 protected:
  [[nodiscard]] QLineEdit& tokenField() const { return *find<QLineEdit>("Braiins API token"); }
  [[nodiscard]] QLineEdit& addressField() const {
    return *find<QLineEdit>("Bitcoin address to watch");
  }
};

TEST_F(FocusTest, WhoStartsWithNothingCanTypeTheTokenAtOnce) {
  show(BalanceState{});
  EXPECT_TRUE(tokenField().hasFocus());
  for (const auto& figures : {poolAccount(), watchedAddress()}) {
    show(figures);
    EXPECT_FALSE(tokenField().hasFocus());
  }
}

TEST_F(FocusTest, ARefusedAddressCanBeTypedOverInItsFieldWhichIsMarkedUntilThen) {
  show(BalanceState{});
  auto& field = addressField();
  const auto edge = [&field] { return field.grab().toImage().pixelColor(1, field.height() / 2); };
  const QColor red = theme::textColor(theme::TextColor::red, view->palette());
  for (const bool byKey : {false, true}) {
    const auto draft = QStringLiteral("nonsense %1").arg(byKey);
    field.setText(draft);
    EXPECT_NE(edge(), red);
    byKey ? QTest::keyClick(&field, Qt::Key_Return)
          : QTest::mouseClick(button("Save", "Bitcoin address to watch"), Qt::LeftButton);
    settle();
    EXPECT_TRUE(field.hasFocus());
    EXPECT_EQ(field.selectedText(), draft);
    EXPECT_EQ(edge(), red);
  }
  QTest::keyClicks(&field, QStringLiteral("b"));
  EXPECT_EQ(field.text(), QStringLiteral("b"));
  EXPECT_NE(edge(), red);
}

}}  // namespace orvane::test
