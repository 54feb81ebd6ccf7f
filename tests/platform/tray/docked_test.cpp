#include <QApplication>
#include <QMenu>
#include <QWidget>
#include <algorithm>

#include "fake_tray.h"
#include "status_item_fixture.h"

namespace orvane::test {
namespace {

constexpr QColor lightPanel(0xf4, 0xf4, 0xf0);

bool hasGreen(const QImage& picture) {
  for (int x = 0; x < picture.width(); ++x) {
    const auto color = picture.pixelColor(x, picture.height() / 2);
    if (color.green() > color.red() + 30 && color.green() > color.blue() + 30) { return true; }
  }
  return false;
}

class DockedTest : public StatusItemTest {
 protected:
  /// Waits with the tray at work.
  [[nodiscard]] bool within(const std::function<bool()>& condition) {
    return QTest::qWaitFor([&] {
      if (tray) { tray->handleEvents(); }
      return condition();
    });
  }
  [[nodiscard]] bool isOnThePanel() {
    return within([this] {
      const QImage picture = tray->picture();
      return !picture.isNull() && picture.pixelColor(0, 0) == lightPanel && hasGreen(picture);
    });
  }

  std::optional<FakeTray> tray;
};

TEST_F(DockedTest, ASquareIconThatActsOnALeftClickAndShowsTheMenuOnARightOne) {
  tray.emplace(lightPanel.rgb());
  createItem();
  ASSERT_TRUE(isOnThePanel());
  EXPECT_EQ(tray->picture().width(), FakeTray::slotHeight);
  FakeTray::click(2);
  FakeTray::click(1);
  EXPECT_TRUE(within([this] { return log == std::vector<std::string>{"clicked"}; }));
  FakeTray::click(3);
  const auto openMenu = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
  ASSERT_TRUE(within([&] { return openMenu() != nullptr; }));
  EXPECT_FALSE(openMenu()->actions().front()->isEnabled());
  openMenu()->actions().at(3)->trigger();
  EXPECT_TRUE(within([this] { return log.back() == "Open Orvane"; }));
}

TEST_F(DockedTest, ALateTrayAndItsSuccessorGetTheIcon) {
  createItem();
  QTest::qWait(150);
  tray.emplace(lightPanel.rgb());
  EXPECT_TRUE(isOnThePanel());
  tray.reset();
  QTest::qWait(150);
  EXPECT_TRUE(std::ranges::none_of(QApplication::topLevelWidgets(), &QWidget::isVisible))
      << "no window may be left standing on the screen";
  tray.emplace(lightPanel.rgb());
  EXPECT_TRUE(isOnThePanel());
}

TEST_F(DockedTest, ATrayThatTakesNothingLeavesTheItemToTheBus) {
  host->startWatcher();
  tray.emplace(lightPanel.rgb(), false);
  createItem({"XFCE"});
  EXPECT_TRUE(within([&] { return !host->registered.isEmpty(); }));
}

}  // namespace
}  // namespace orvane::test
