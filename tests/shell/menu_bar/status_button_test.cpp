#include "shell/menu_bar/runtime_fixture.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;

/// What the item shows and how wide it is.
class StatusButtonTest : public RuntimeFixture {
 protected:
  StatusButtonTest() {
    runtime->menuBarTextProvider = [this] { return title; };
    attach();
  }
  [[nodiscard]] const StatusImage& image() const { return statusBar.item.image.value(); }

  std::optional<std::string> title = "203 sats";
};

TEST_F(StatusButtonTest, BeforeAnyStatusTheIconIsPlainAndNamed) {
  EXPECT_EQ(statusBar.item.toolTip, "Orvane");
  EXPECT_EQ(image().symbolName, "chart.line.uptrend.xyaxis");
  EXPECT_EQ(image().symbolPointSize, 13);
  EXPECT_EQ(image().symbolColor, std::nullopt);
  EXPECT_EQ(image().accessibilityDescription, "Orvane");
  EXPECT_EQ(statusBar.item.length, StatusItem::squareLength);
}

TEST_F(StatusButtonTest, NotWorkingShowsTheTemplateIconAlone) {
  runtime->updateStatus(false, "Loading", false);
  EXPECT_EQ(statusBar.item.toolTip, "Orvane · Loading");
  EXPECT_EQ(image().symbolColor, std::nullopt);
  EXPECT_EQ(image().text, "");
  EXPECT_EQ(statusBar.item.length, StatusItem::squareLength);
}

TEST_F(StatusButtonTest, WorkingPutsTheGreenTitleBesideAGreenIcon) {
  runtime->updateStatus(true, "Balance 203 sats", false);
  EXPECT_EQ(image().symbolColor, StatusColor::systemGreen);
  EXPECT_EQ(image().text, "203 sats");
  EXPECT_EQ(image().textPointSize, 9);
  EXPECT_EQ(image().textColor, StatusColor::systemGreen);
  EXPECT_EQ(image().accessibilityDescription, "Orvane 203 sats");
  // Eight characters of 6.25 points, the symbol's 17 and the gap of 3.
  EXPECT_EQ(image().size, (PointSize{.width = 70, .height = 18}));
  EXPECT_EQ(statusBar.item.length, 78);
}

TEST_F(StatusButtonTest, WidthCountsWholePointsOfText) {
  title = "1 sat";
  runtime->updateStatus(true, "Balance 1 sat", false);
  EXPECT_EQ(image().size.width, 32 + 17 + 3);
}

TEST_F(StatusButtonTest, HeightFollowsTheTallestPart) {
  statusBar.textHeight = 25;
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(image().size.height, 25);
  statusBar.symbolMeasure.height = 30;
  runtime->updateStatus(true, "Balance again", false);
  EXPECT_EQ(image().size.height, 30);
}

TEST_F(StatusButtonTest, AnAlertTintsTheIconButNotTheTitle) {
  runtime->updateStatus(true, "Braiins could not be reached.", true);
  EXPECT_EQ(image().symbolColor, StatusColor::systemOrange);
  EXPECT_EQ(image().text, "203 sats");
  EXPECT_EQ(image().textColor, StatusColor::systemGreen);

  runtime->updateStatus(false, "Braiins could not be reached.", true);
  EXPECT_EQ(image().symbolColor, StatusColor::systemOrange);
  EXPECT_EQ(image().text, "");
  EXPECT_EQ(statusBar.item.length, StatusItem::squareLength);
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

TEST_F(StatusButtonTest, TheSameStatusTwiceDrawsOnlyOnce) {
  runtime->updateStatus(true, "Balance 203 sats", false);
  const int draws = statusBar.item.draws;
  title = "204 sats";
  runtime->updateStatus(true, "Balance 203 sats", false);
  EXPECT_EQ(statusBar.item.draws, draws);
  EXPECT_EQ(image().text, "203 sats");
}

TEST_F(StatusButtonTest, EachOfTheThreeValuesAloneIsAChange) {
  runtime->updateStatus(true, "a", false);
  for (const auto& [working, status, alert] :
       {std::tuple{true, "b", false}, std::tuple{true, "b", true}, std::tuple{false, "b", true}}) {
    const int draws = statusBar.item.draws;
    runtime->updateStatus(working, status, alert);
    EXPECT_GT(statusBar.item.draws, draws) << status << working << alert;
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

TEST_F(StatusButtonTest, AnItemThatDoesNotComeIsAskedForAgain) {
  FakeStatusBar late;
  late.givesItems = false;
  const auto other =
      BackgroundRuntime::create({}, {executor, application, late, broadcasts, defaults});
  other->attachMainWindow("Orvane");
  other->updateStatus(false, "Loading", false);
  EXPECT_EQ(late.created, 0);
  late.givesItems = true;
  other->updateStatus(true, "Balance", false);
  other->attachMainWindow("Orvane");
  EXPECT_EQ(late.created, 1);
  EXPECT_EQ(late.item.toolTip, "Orvane · Balance");
}

TEST_F(StatusButtonTest, TheItemAndEveryTimerGoWithTheRuntime) {
  title.reset();
  runtime->updateStatus(true, "Balance", false);
  EXPECT_EQ(executor.pendingTimers(), 2U);
  runtime.reset();
  EXPECT_FALSE(statusBar.item.exists);
  EXPECT_EQ(executor.pendingTimers(), 0U);
  EXPECT_EQ(application.installedMonitors(), 0U);
  broadcasts.post(BackgroundRuntime::rateSettingChanged);
}

}  // namespace
}  // namespace orvane::test
