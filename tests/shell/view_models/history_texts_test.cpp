#include "shell/view_models/history_texts.h"

#include <limits>

#include <gmock/gmock.h>

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();

const LocaleFormat english({.numbers = "en_US", .dates = "en_US", .timeZone = "America/New_York"});
const LocaleFormat german({.numbers = "de_DE", .dates = "de_DE", .timeZone = "UTC"});

TEST(HistoryTextsTest, WholeSatoshisAreRoundedAndTheSmallestRewardsAreSeen) {
  const std::vector<std::pair<std::string_view, std::string_view>> cases{
      {"0", "0 sats"},
      {"-0", "0 sats"},
      {"0.5", "0.500 sats"},
      {"0.9999", "1.000 sats"},
      {"0.0001", "0.000 sats"},
      {"-12345.5", "-12345.500 sats"},
      {"1", "1 sats"},
      {"1.5", "2 sats"},
      {"12345.5", "12,346 sats"},
      {"9.3e18", "9,223,372,036,854,775,807 sats"},
      {"1e1000", "9,223,372,036,854,775,807 sats"},
  };
  for (const auto& [amount, text] : cases) {
    EXPECT_EQ(historySatsText(english, Decimal::parse(amount).value()), text);
  }
}

std::vector<std::string> cellsOf(const BraiinsHistoryDay& day, const LocaleFormat& format) {
  const HistoryRow row = historyRow(day, format);
  return {row.date, row.averageHashRate, row.shares, row.reward};
}

TEST(HistoryTextsTest, ARowHasADashForWhatIsNotKnown) {
  const std::chrono::sys_seconds day = std::chrono::sys_days{2026y / 11 / 15};
  EXPECT_THAT(
      cellsOf({.date = day, .averageHashRate = 5e9, .shares = 12'345, .rewardBTC = "0.00012345"},
              english),
      ElementsAre("Nov 15, 2026", "5.00 GH/s", "12,345", "12,345 sats"));
  EXPECT_THAT(cellsOf({.date = day, .averageHashRate = 5e9, .shares = 12'345}, german),
              ElementsAre("15.11.2026", "5.00 GH/s", "12.345", "—"));
  EXPECT_THAT(cellsOf({.date = day, .rewardBTC = "x"}, english),
              ElementsAre("Nov 15, 2026", "—", "—", "—"));
}

// A pool may send any number; each has some text.
TEST(HistoryTextsTest, ARowTakesEveryNumber) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const auto date : {std::chrono::sys_seconds::min(), std::chrono::sys_seconds::max()}) {
    const auto cells = cellsOf(
        {.date = date, .averageHashRate = infinity, .shares = largest, .rewardBTC = "1e999"},
        english);
    EXPECT_FALSE(cells[0].empty());
    EXPECT_EQ(cells[1], "—");
    EXPECT_EQ(cells[2], "9,223,372,036,854,775,807");
    EXPECT_EQ(cells[3], "9,223,372,036,854,775,807 sats");
  }
}

TEST(HistoryTextsTest, TheTotalsComeInTheirOrderAndTheExtraOnesBehindThem) {
  const std::vector<BraiinsHistoryDay> days{{.rewardBTC = "0.00012345"}};
  const auto metrics =
      historySummaryMetrics(BraiinsHistorySummary(days), english, {{.title = "A", .value = "b"}});
  EXPECT_THAT(metrics, ElementsAre(Metric{.title = "TOTAL", .value = "1 day"},
                                   Metric{.title = "AVG HASHRATE", .value = "—"},
                                   Metric{.title = "ACCEPTED SHARES", .value = "0"},
                                   Metric{.title = "CONFIRMED REWARD", .value = "12,345 sats"},
                                   Metric{.title = "A", .value = "b"}));
  EXPECT_EQ(historySummaryMetrics(BraiinsHistorySummary({}), english, {})[0].value, "0 days");
}

TEST(HistoryTextsTest, TheValueOfTheTotalIsThereWithPricesOnly) {
  const std::vector<BraiinsHistoryDay> days{{.rewardBTC = "0.5"}};
  const BraiinsHistorySummary summary(days);
  BalanceState state;
  EXPECT_TRUE(historyValueMetrics(summary, state, english).empty());
  state.prices = CurrentBitcoinPrices{.eur = 3, .usd = 1};
  state.preferredFiatCurrency = PreferredFiatCurrency::usd;
  EXPECT_THAT(historyValueMetrics(summary, state, english),
              ElementsAre(Metric{.title = "VALUE · USD", .value = "0.500 $"}));
}

}  // namespace
}  // namespace orvane::test
