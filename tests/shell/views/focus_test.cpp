#include <QAccessible>
#include <QClipboard>
#include <QLineEdit>
#include <QWindow>
#include <set>
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

TEST_F(FocusTest, EveryStationOfTheTabKeyShowsThatItHasTheFocus) {
  show(everything());
  auto* const first = visible<QRadioButton>().constFirst();
  ASSERT_TRUE(first->hasFocus());
  const auto calm = first->grab().toImage();
  first->clearFocus();
  EXPECT_EQ(first->grab().toImage(), calm) << "a ring before any key was pressed";
  first->setFocus();
  std::set<QWidget*> stations;
  for (;;) {
    QTest::keyClick(view->windowHandle(), Qt::Key_Tab);
    if (QApplication::focusWidget() == first) {
      QTest::keyClick(view->windowHandle(), Qt::Key_Right);
    }
    auto& station = *QApplication::focusWidget();
    if (!stations.insert(&station).second) { break; }
    const auto with = view->grab().toImage();
    station.clearFocus();
    EXPECT_NE(view->grab().toImage(), with)
        << QAccessible::queryAccessibleInterface(&station)->text(QAccessible::Name).toStdString();
    station.setFocus(Qt::TabFocusReason);
  }
  EXPECT_GT(stations.size(), 15U);
}

TEST_F(FocusTest, TheTabKeyGoesToTheChosenUnitOnEitherCardWhicheverChoseIt) {
  show(everything());
  const auto choices = visible<QRadioButton>();
  for (const int pressed : {1, 2, 3}) {
    choices.at(pressed)->click();
    settle();
    for (const auto* const choice : choices) {
      EXPECT_EQ((choice->focusPolicy() & Qt::TabFocus) != 0, choice->isChecked())
          << pressed << choice->text().toStdString();
    }
  }
}

TEST_F(FocusTest, TheAddressAndTheStatusTextsAreReachedAndCopiedByKey) {
  show(everything());
  const auto copied = [this](const std::string& text) {
    auto& station = *label(text);
    EXPECT_TRUE(station.focusPolicy() & Qt::TabFocus);
    station.setFocus(Qt::TabFocusReason);
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&station, Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->text().toStdString();
  };
  const auto status = poolCard(fakes->state(), english).status.text;
  for (const auto& text : {fakes->state().watchedAddress, status}) {
    EXPECT_EQ(copied(text), text);
  }
  auto& line = *label(status);
  fakes->bring(everything());
  settle();
  EXPECT_NE(line.text().toStdString(), status);
  EXPECT_EQ(line.selectedText(), line.text()) << "it stays so";
}

TEST_F(FocusTest, ASavedFieldKeepsTheFocusFromTheButtonThatRemoves) {
  show(watchedAddress());
  auto& field = addressField();
  field.setText(QString::fromLatin1(secondAddress));
  auto& save = *button("Save", "Bitcoin address to watch");
  save.setFocus();
  QTest::keyClick(&save, Qt::Key_Space);
  settle();
  EXPECT_FALSE(save.isEnabled());
  EXPECT_TRUE(field.hasFocus());
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
