#include <QAccessible>
#include "shell/views/view_fixture.h"

namespace orvane::test { namespace {

/// What a screen reader is told.
class ScreenReaderTest : public ViewTest {
 protected:
  void SetUp() override { show(everything()); }
  [[nodiscard]] QAccessibleInterface& groupOf(int choice) const {
    return *QAccessible::queryAccessibleInterface(visible<QRadioButton>().at(choice))->parent();
  }
};

TEST_F(ScreenReaderTest, APickerIsAGroupAndNamedAfterWhatItIsOf) {
  for (const auto& [choice, name] : {std::pair(0, "Braiins Pool balance"),
                                     {2, "Watched address"},
                                     {4, "Preferred currency"},
                                     {6, "Show the daily history as"}}) {
    EXPECT_EQ(groupOf(choice).role(), QAccessible::Grouping);
    EXPECT_EQ(groupOf(choice).text(QAccessible::Name), QString::fromLatin1(name));
  }
}

TEST_F(ScreenReaderTest, TheCurrencysTextIsTheLabelOfItsPicker) {
  const auto labels = groupOf(4).relations(QAccessible::Label);
  ASSERT_EQ(labels.size(), 1);
  EXPECT_EQ(labels[0].first->object(), label("Preferred currency"));
}

TEST_F(ScreenReaderTest, ATextIsSpokenWithoutTheMarksThatItIsDrawnWith) {
  FigureLabel figure(theme::TextStyle::body, theme::TextColor::primary);
  for (const char* const text : {"٢٠٣ sats", "٢٠٤ sats", "Loading…"}) {
    figure.showText(text);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&figure)->text(QAccessible::Name).toStdString(),
              text);
  }
}

}}  // namespace orvane::test
