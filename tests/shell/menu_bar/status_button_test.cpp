#include "shell/menu_bar/status_button.h"
#include <cmath>
#include <limits>
#include "shell/menu_bar/runtime_fixture.h"

namespace orvane::test { namespace {

using namespace std::chrono_literals;

TEST(MenuBarRateText, ScalesAndRefusesWhatIsNoRate) {
  constexpr auto infinity = std::numeric_limits<double>::infinity();
  struct Case {
    double rate;
    const char* text;
  };
  for (const auto& [rate, text] :
       {Case{0, ""}, Case{-1, ""}, Case{std::nan(""), ""}, Case{infinity, ""}, Case{0.4, "0 H"},
        Case{999, "999 H"}, Case{1'000, "1.00 kH"}, Case{12'340, "12.3 kH"},
        Case{999'999, "1000 kH"}, Case{1e6, "1.00 MH"}, Case{2.5e9, "2.50 GH"},
        Case{1e14, "100 TH"}, Case{std::nextafter(1e14, infinity), ""}}) {
    EXPECT_EQ(menuBarRateText(rate), text) << rate;
  }
}

/// What the item shows, how wide it is, and when that is decided anew.
class StatusButtonTest : public RuntimeFixture {
 protected:
  StatusButtonTest() {
    runtime->menuBarTextProvider = [this] {
      ++asked;
      return title;
    };
  }
  [[nodiscard]] const StatusImage& image() const { return statusBar.item.image.value(); }

  std::optional<std::string> title = "203 sats";
  int asked = 0;
};

TEST_F(StatusButtonTest, IsTintedByTheStateAndHasTheGreenTitleBesideItWhileThereAreFigures) {
  EXPECT_EQ(statusBar.item.toolTip, "Orvane");
  struct Case {
    bool working;
    const char* status;
    bool alert;
    std::optional<StatusColor> color;
    const char* text;
    double length;
    const char* spoken;
  };
  for (const auto& [working, status, alert, color, text, length, spoken] :
       {Case{false, "Loading", false, std::nullopt, "", StatusItem::squareLength, "Orvane"},
        Case{true, "Balance", false, StatusColor::systemGreen, "203 sats", 78, "Orvane 203 sats"},
        Case{true, "Other", false, StatusColor::systemGreen, "203 sats", 78, "Orvane 203 sats"},
        Case{true, "Other", true, StatusColor::systemOrange, "203 sats", 78, "Orvane 203 sats"},
        Case{false, "Other", true, StatusColor::systemOrange, "", StatusItem::squareLength,
             "Orvane"}}) {
    runtime->updateStatus(working, status, alert);
    EXPECT_EQ(image().symbolName, "chart.line.uptrend.xyaxis");
    EXPECT_EQ(image().symbolPointSize, 13);
    EXPECT_EQ(image().symbolColor, color) << working << alert;
    EXPECT_EQ(image().text, text) << working << alert;
    EXPECT_EQ(statusBar.item.length, length) << working << alert;
    EXPECT_EQ(image().accessibilityDescription, spoken) << working << alert;
    EXPECT_EQ(statusBar.item.toolTip, std::string("Orvane · ") + status);
    if (working) {
      EXPECT_EQ(image().textPointSize, 9);
      EXPECT_EQ(image().textColor, StatusColor::systemGreen);
    }
  }
}

TEST_F(StatusButtonTest, IsAsWideAsItsWholePointsAndAsHighAsItsTallestPart) {
  title = "1 sat";  // 31.25 points wide; the symbol has 17, the gap 3
  struct Case {
    double textHeight;
    double symbolHeight;
    double height;
  };
  for (const auto& [textHeight, symbolHeight, height] :
       {Case{11, 14, 18}, Case{25, 14, 25}, Case{25, 30, 30}}) {
    statusBar.textHeight = textHeight;
    statusBar.symbolMeasure.height = symbolHeight;
    runtime->updateStatus(true, std::to_string(height), false);
    EXPECT_EQ(image().size, (PointSize{32 + 20, height}));
    EXPECT_EQ(statusBar.item.length, 32 + 20 + 8);
  }
}

TEST_F(StatusButtonTest, AMissingSymbolFallsBack) {
  statusBar.symbols = {"chart.bar"};
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(image().symbolName, "chart.bar");
  EXPECT_EQ(image().text, "203 sats");
}

TEST_F(StatusButtonTest, TheTitleFollowsItsProviderEveryHalfMinuteAndIsDrawnWhenItChanges) {
  runtime->updateStatus(true, "Balance", false);
  const int draws = statusBar.item.draws;
  executor.advance(29s);
  title = "204 sats";
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(statusBar.item.draws, draws) << "nothing new was announced";
  executor.advance(1s);
  EXPECT_EQ(image().text, "204 sats");
  executor.advance(5min);
  EXPECT_EQ(statusBar.item.draws, draws + 1) << "an unchanged title was drawn again";
}

TEST_F(StatusButtonTest, AnEmptyTitleIsAskedForEveryFiveSecondsByOneTimerWhileThereAreFigures) {
  title.reset();
  runtime->updateStatus(false, "Loading", false);
  EXPECT_EQ(executor.pendingTimers(), 1U) << "the regular timer alone";
  EXPECT_EQ(asked, 0);
  runtime->updateStatus(true, "Balance", false);
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(executor.pendingTimers(), 2U) << "the regular timer and one retry";
  asked = 0;
  executor.advance(5s);
  EXPECT_EQ(asked, 1);
  title = "203 sats";
  executor.advance(5s);
  EXPECT_EQ(image().text, "203 sats");
  EXPECT_EQ(executor.pendingTimers(), 1U);
}

TEST_F(StatusButtonTest, WithoutATitleProviderTheHashRateStandsThereAsTheSettingHasIt) {
  runtime->menuBarTextProvider = {};
  runtime->menuBarRateProvider = [] { return 12.34e12; };
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(image().accessibilityDescription, "Orvane 12.3 TH/s");
  defaults.setBoolean(BackgroundRuntime::rateSettingKey, false);
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(image().text, "");
  defaults.setText(BackgroundRuntime::rateSettingKey, "false");  // no boolean: counts as on
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(image().text, "12.3 TH");
}

}}  // namespace orvane::test
