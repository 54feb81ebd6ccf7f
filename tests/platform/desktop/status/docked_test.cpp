#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop_session.h"
#include "fake_host.h"
#include "fake_tray.h"
#include "platform/desktop/status/desktop_status_bar.h"
#include "platform/desktop/status/desktop_status_item.h"
#include "platform/eventloop/qt_executor.h"
#include "sample_status.h"

namespace orvane::test {
namespace {

constexpr std::uint32_t lightPanel = 0xf4f4f0;

class DockedTest : public ::testing::Test {
 protected:
  void createItem(std::vector<std::string> desktopNames = {}) {
    item = std::make_unique<DesktopStatusItem>(executor, std::move(desktopNames),
                                               [](const std::string&) {});
    item->setAction(actionOn(
        *item, [this] { log.emplace_back("clicked"); },
        [this] {
          return sampleMenu("1 sats", [this](const std::string& title) { log.push_back(title); });
        }));
    showText("12,345 sats");
  }
  void showText(const std::string& text) {
    item->setImage(sampleImage(bar, text));
    item->setToolTip("Orvane");
  }
  /// Waits with the tray at work.
  [[nodiscard]] bool within(const std::function<bool()>& condition) {
    return waitUntil([&] {
      if (tray) tray->handleEvents();
      return condition();
    });
  }
  [[nodiscard]] bool isDrawn() {
    return within([this] { return tray->icon() != 0 && tray->drawnPercent() > 5; });
  }
  [[nodiscard]] static QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  }

  QtExecutor executor;
  DesktopStatusBar bar{executor};
  std::optional<FakeTray> tray;
  std::vector<std::string> log;
  std::unique_ptr<DesktopStatusItem> item;
};

TEST_F(DockedTest, ASquareIconOnTheColourOfItsPanel) {
  tray.emplace(lightPanel);
  createItem();
  ASSERT_TRUE(isDrawn());
  EXPECT_TRUE(within([this] { return tray->cornerPixel() == lightPanel; }));
  EXPECT_EQ(tray->iconWidth(), FakeTray::slotHeight);
}

TEST_F(DockedTest, OnXfceItIsAsWideAsItsText) {
  tray.emplace(lightPanel);
  createItem({"XFCE"});
  ASSERT_TRUE(isDrawn());
  const auto widthFor = [this](const std::string& text) {
    return static_cast<int>(bar.textSize(text, 9.0 * FakeTray::slotHeight / 18).width);
  };
  EXPECT_TRUE(within([&] { return tray->iconWidth() > widthFor("12,345 sats") + 14; }));
  showText("7 | 1,234,567 sats");
  EXPECT_TRUE(within([&] { return tray->iconWidth() > widthFor("7 | 1,234,567 sats") + 14; }));
}

TEST_F(DockedTest, LeftClickActsAndRightClickShowsTheMenu) {
  tray.emplace(lightPanel);
  createItem();
  ASSERT_TRUE(isDrawn());
  tray->click(1);
  EXPECT_TRUE(within([this] { return log == std::vector<std::string>{"clicked"}; }));
  tray->click(2);
  tray->click(3);
  ASSERT_TRUE(within([] { return openMenu() != nullptr; }));
  auto* const menu = openMenu();
  ASSERT_EQ(menu->actions().size(), 10);
  EXPECT_FALSE(menu->actions().front()->isEnabled());
  menu->actions().at(3)->trigger();
  EXPECT_TRUE(within([this] { return log.back() == "Open Orvane"; }));
  EXPECT_EQ(log.size(), 2U) << "the middle button must do nothing";
}

TEST_F(DockedTest, ALateTrayAndItsSuccessorGetTheIcon) {
  createItem();
  letSettle();
  tray.emplace(lightPanel);
  EXPECT_TRUE(isDrawn());
  tray.reset();
  letSettle();
  EXPECT_TRUE(std::ranges::none_of(QApplication::topLevelWidgets(), &QWidget::isVisible))
      << "no window may be left standing on the screen";
  tray.emplace(lightPanel);
  EXPECT_TRUE(isDrawn());
}

TEST_F(DockedTest, ATrayThatTakesNothingLeavesTheItemToTheBus) {
  FakeHost host;
  host.startWatcher();
  tray.emplace(lightPanel, false);
  createItem({"XFCE"});
  EXPECT_TRUE(within([&] { return !host.registered.isEmpty(); }));
}

}  // namespace
}  // namespace orvane::test
