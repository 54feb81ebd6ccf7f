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

constexpr QColor lightPanel(0xf4, 0xf4, 0xf0);

bool hasGreen(const QImage& picture) {
  for (int x = 0; x < picture.width(); ++x) {
    const auto color = picture.pixelColor(x, picture.height() / 2);
    if (color.green() > color.red() + 30 && color.green() > color.blue() + 30) return true;
  }
  return false;
}

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
  [[nodiscard]] bool isOnThePanel() {
    return within([this] {
      const QImage picture = tray->picture();
      return !picture.isNull() && picture.pixelColor(0, 0) == lightPanel && hasGreen(picture);
    });
  }

  QtExecutor executor;
  DesktopStatusBar bar{executor};
  std::optional<FakeTray> tray;
  std::vector<std::string> log;
  std::unique_ptr<DesktopStatusItem> item;
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

TEST_F(DockedTest, OnXfceItIsAsWideAsItsText) {
  tray.emplace(lightPanel.rgb());
  createItem({"XFCE"});
  ASSERT_TRUE(isOnThePanel());
  for (const char* const text : {"12,345 sats", "7 | 1,234,567 sats"}) {
    showText(text);
    const auto width = bar.textSize(text, 9.0 * FakeTray::slotHeight / 18).width + 14;
    EXPECT_TRUE(within([&] { return tray->picture().width() > width; })) << text;
  }
}

TEST_F(DockedTest, ALateTrayAndItsSuccessorGetTheIcon) {
  createItem();
  letSettle();
  tray.emplace(lightPanel.rgb());
  EXPECT_TRUE(isOnThePanel());
  tray.reset();
  letSettle();
  EXPECT_TRUE(std::ranges::none_of(QApplication::topLevelWidgets(), &QWidget::isVisible))
      << "no window may be left standing on the screen";
  tray.emplace(lightPanel.rgb());
  EXPECT_TRUE(isOnThePanel());
}

TEST_F(DockedTest, ATrayThatTakesNothingLeavesTheItemToTheBus) {
  FakeHost host;
  host.startWatcher();
  tray.emplace(lightPanel.rgb(), false);
  createItem({"XFCE"});
  EXPECT_TRUE(within([&] { return !host.registered.isEmpty(); }));
}

}  // namespace
}  // namespace orvane::test
