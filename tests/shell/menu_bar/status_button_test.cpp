#include "shell/menu_bar/status_button.h"

#include <cmath>
#include <limits>

#include "shell/menu_bar/runtime_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

TEST(MenuBarRateText, ScalesAndRefusesWhatIsNoRate) {
  constexpr auto infinity = std::numeric_limits<double>::infinity();
  struct Case {
    double rate;
    const char* text;
  };
  for (const auto& [rate, text] :
       {Case{0, ""}, Case{-1, ""}, Case{std::numeric_limits<double>::quiet_NaN(), ""},
        Case{infinity, ""}, Case{0.4, "0 H"}, Case{999, "999 H"}, Case{1'000, "1.00 kH"},
        Case{12'340, "12.3 kH"}, Case{999'999, "1000 kH"}, Case{1e6, "1.00 MH"},
        Case{2.5e9, "2.50 GH"}, Case{1e14, "100 TH"}, Case{std::nextafter(1e14, infinity), ""}}) {
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
    attach();
  }
  [[nodiscard]] const StatusImage& image() const { return statusBar.item.image.value(); }

  std::optional<std::string> title = "203 sats";
  int asked = 0;
};

TEST_F(StatusButtonTest, BeforeAnyStatusTheIconIsPlainAndNamed) {
  EXPECT_EQ(statusBar.item.toolTip, "Orvane");
  EXPECT_EQ(image().symbolName, "chart.line.uptrend.xyaxis");
  EXPECT_EQ(image().symbolPointSize, 13);
  EXPECT_EQ(image().accessibilityDescription, "Orvane");
}

TEST_F(StatusButtonTest, IsTintedByTheStateAndHasTheGreenTitleBesideItWhileThereAreFigures) {
  struct Case {
    bool working;
    bool alert;
    std::optional<StatusColor> color;
    const char* text;
    double length;
    const char* spoken;
  };
  for (const auto& [working, alert, color, text, length, spoken] :
       {Case{false, false, std::nullopt, "", StatusItem::squareLength, "Orvane"},
        Case{true, false, StatusColor::systemGreen, "203 sats", 78, "Orvane 203 sats"},
        Case{true, true, StatusColor::systemOrange, "203 sats", 78, "Orvane 203 sats"},
        Case{false, true, StatusColor::systemOrange, "", StatusItem::squareLength, "Orvane"}}) {
    runtime->updateStatus(working, "Balance", alert);
    EXPECT_EQ(image().symbolColor, color) << working << alert;
    EXPECT_EQ(image().text, text) << working << alert;
    EXPECT_EQ(statusBar.item.length, length) << working << alert;
    EXPECT_EQ(image().accessibilityDescription, spoken) << working << alert;
    EXPECT_EQ(statusBar.item.toolTip, "Orvane · Balance");
    if (!image().text.empty()) {
      EXPECT_EQ(image().textPointSize, 9);
      EXPECT_EQ(image().textColor, StatusColor::systemGreen);
    }
  }
}

TEST_F(StatusButtonTest, IsAsWideAsItsWholePointsAndAsHighAsItsTallestPart) {
  struct Case {
    const char* title;
    double textHeight;
    double symbolHeight;
    PointSize size;
  };
  // Each character has 6.25 points, the symbol 17, the gap 3.
  for (const auto& [text, textHeight, symbolHeight, size] :
       {Case{"203 sats", 11, 14, {50 + 20, 18}}, Case{"1 sat", 25, 14, {32 + 20, 25}},
        Case{"2 sat", 25, 30, {32 + 20, 30}}}) {
    title = text;
    statusBar.textHeight = textHeight;
    statusBar.symbolMeasure.height = symbolHeight;
    runtime->updateStatus(true, text, false);
    EXPECT_EQ(image().size, size) << text;
    EXPECT_EQ(statusBar.item.length, size.width + 8) << text;
  }
}

TEST_F(StatusButtonTest, AMissingSymbolFallsBackAndNoSymbolMeansNoTextEither) {
  statusBar.symbols = {"chart.bar"};
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(image().symbolName, "chart.bar");
  EXPECT_EQ(image().text, "203 sats");
  statusBar.symbols.clear();
  runtime->updateStatus(true, "Balance again", false);
  EXPECT_EQ(statusBar.item.image, std::nullopt);
  EXPECT_EQ(statusBar.item.length, StatusItem::squareLength);
}

TEST_F(StatusButtonTest, IsDrawnAgainOnlyWhenOneOfThreeValuesChanges) {
  runtime->updateStatus(true, "a", false);
  for (const auto& [working, status, alert] :
       {std::tuple{true, "b", false}, std::tuple{true, "b", true}, std::tuple{false, "b", true}}) {
    const int draws = statusBar.item.draws;
    runtime->updateStatus(working, status, alert);
    const int drawn = statusBar.item.draws;
    EXPECT_GT(drawn, draws) << status << working << alert;
    title = "another";
    runtime->updateStatus(working, status, alert);
    EXPECT_EQ(statusBar.item.draws, drawn) << status << working << alert;
  }
}

TEST_F(StatusButtonTest, TheTitleFollowsItsProviderEveryHalfMinute) {
  runtime->updateStatus(true, "Balance", false);
  const int draws = statusBar.item.draws;
  executor.advance(29s);
  title = "204 sats";
  EXPECT_EQ(statusBar.item.draws, draws);
  executor.advance(1s);
  EXPECT_EQ(image().text, "204 sats");
  executor.advance(5min);
  EXPECT_EQ(statusBar.item.draws, draws + 1) << "an unchanged title was drawn again";
}

TEST_F(StatusButtonTest, AnEmptyTitleIsAskedForEveryFiveSecondsByOneTimer) {
  title.reset();
  runtime->updateStatus(true, "Balance", false);
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(executor.pendingTimers(), 2U) << "the regular timer and one retry";
  asked = 0;
  executor.advance(5s);
  EXPECT_EQ(asked, 1);
  title = "";
  executor.advance(5s);
  EXPECT_EQ(asked, 2);
  title = "203 sats";
  executor.advance(5s);
  EXPECT_EQ(image().text, "203 sats");
  EXPECT_EQ(executor.pendingTimers(), 1U);
}

TEST_F(StatusButtonTest, WithoutFiguresNoTitleIsAskedFor) {
  runtime->updateStatus(false, "Loading", false);
  EXPECT_EQ(executor.pendingTimers(), 1U);
  EXPECT_EQ(asked, 0);
}

TEST_F(StatusButtonTest, WithoutATitleProviderTheHashRateStandsThereAsTheSettingHasIt) {
  std::optional<double> rate = 12.34e12;
  runtime->menuBarTextProvider = {};
  runtime->menuBarRateProvider = [&] { return rate; };
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(image().text, "12.3 TH");
  EXPECT_EQ(image().accessibilityDescription, "Orvane 12.3 TH/s");
  defaults.setBoolean(BackgroundRuntime::rateSettingKey, false);
  EXPECT_EQ(image().text, "12.3 TH") << "before it is announced";
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(image().text, "");
  defaults.setText(BackgroundRuntime::rateSettingKey, "false");  // no boolean: counts as on
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(image().text, "12.3 TH");
  rate.reset();
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
  EXPECT_EQ(image().text, "");
}

TEST_F(StatusButtonTest, AnItemThatDoesNotComeIsAskedForAgain) {
  FakeStatusBar late;
  late.givesItems = false;
  const auto other =
      BackgroundRuntime::create({}, {executor, application, late, broadcasts, defaults});
  other->attachMainWindow("Orvane");
  late.givesItems = true;
  other->updateStatus(true, "Balance", false);
  other->attachMainWindow("Orvane");
  EXPECT_EQ(late.created, 1);
  EXPECT_EQ(late.item.toolTip, "Orvane · Balance");
}

}  // namespace
}  // namespace orvane::test
