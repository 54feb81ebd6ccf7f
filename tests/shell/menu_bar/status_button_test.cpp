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

TEST_F(StatusButtonTest, WorkingPutsTheGreenTitleBesideAGreenIcon) {
  runtime->updateStatus(true, "Balance 203 sats", false);
  EXPECT_EQ(statusBar.item.toolTip, "Orvane · Balance 203 sats");
  EXPECT_EQ(image().symbolColor, StatusColor::systemGreen);
  EXPECT_EQ(image().text, "203 sats");
  EXPECT_EQ(image().textPointSize, 9);
  EXPECT_EQ(image().textColor, StatusColor::systemGreen);
  EXPECT_EQ(image().accessibilityDescription, "Orvane 203 sats");
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
    EXPECT_EQ(statusBar.item.length, size.width + 8);
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
    EXPECT_EQ(statusBar.item.draws, drawn);
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
