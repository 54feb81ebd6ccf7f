#include "shell/view_models/account_tables.h"

#include <limits>

#include <gmock/gmock.h>

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using State = BraiinsWorkerStatus::State;
using testing::ElementsAre;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::chrono::sys_seconds november15 = std::chrono::sys_days{2026y / 11 / 15};

const LocaleFormat english({.numbers = "en_US", .dates = "en_US", .timeZone = "America/New_York"});
const LocaleFormat german({.numbers = "de_DE", .dates = "de_DE", .timeZone = "UTC"});

TEST(WorkersTest, AreNamedByWhatFollowsTheFirstDot) {
  for (const auto& [fullName, name] :
       std::vector<std::pair<std::string, std::string>>{{"pellam.mac", "mac"},
                                                        {"pellam", "pellam"},
                                                        {"pellam.", "pellam."},
                                                        {"a.b.c", "b.c"},
                                                        {".a", "a"},
                                                        {".", "."},
                                                        {"", ""}}) {
    const auto row = workerRow({.fullName = fullName}, english);
    EXPECT_EQ(row.name, name) << fullName;
    EXPECT_EQ(row.nameToolTip, fullName);
  }
}

TEST(WorkersTest, HaveAWordForEachState) {
  for (const auto& [state, word] :
       std::vector<std::pair<State, std::string>>{{State::ok, "OK"},
                                                  {State::low, "Low"},
                                                  {State::off, "Off"},
                                                  {State::disabled, "Disabled"},
                                                  {State::unknown, "—"}}) {
    EXPECT_EQ(workerRow({.fullName = "a", .state = state}, english).stateWord, word);
  }
}

TEST(WorkersTest, TellTheLastShareWhenever) {
  EXPECT_EQ(workerRow({.fullName = "a"}, english).stateToolTip, "");
  for (const auto time : {std::chrono::sys_seconds::min(), std::chrono::sys_seconds::max()}) {
    EXPECT_TRUE(workerRow({.fullName = "a", .lastShare = time}, english)
                    .stateToolTip.starts_with("Last share "));
  }
}

TEST(WorkersTest, ThoseThatAreWellAreCounted) {
  const BraiinsWorkerStatus well{.fullName = "a", .state = State::ok};
  const BraiinsWorkerStatus low{.fullName = "a", .state = State::low};
  EXPECT_EQ(workersSubtitle({}), "");
  EXPECT_EQ(workersSubtitle(std::vector{well, low, well}), "2 of 3 OK");
  EXPECT_EQ(workersSubtitle(std::vector{well, well, well}), "3 OK");
}

TEST(HistoryTest, WholeSatoshisAreRoundedAndTheSmallestRewardsAreSeen) {
  for (const auto& [amount, text] : std::vector<std::pair<std::string, std::string>>{
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
           {"1e1000", "9,223,372,036,854,775,807 sats"}}) {
    EXPECT_EQ(historySatsText(english, Decimal::parse(amount).value()), text) << amount;
  }
}

std::vector<std::string> cellsOf(const BraiinsHistoryDay& day, const LocaleFormat& format) {
  const HistoryRow row = historyRow(day, format);
  return {row.date, row.averageHashRate, row.shares, row.reward};
}

TEST(HistoryTest, ARowHasADashForWhatIsNotKnown) {
  EXPECT_THAT(
      cellsOf(
          {.date = november15, .averageHashRate = 5e9, .shares = 12'345, .rewardBTC = "0.00012345"},
          english),
      ElementsAre("Nov 15, 2026", "5.00 GH/s", "12,345", "12,345 sats"));
  EXPECT_THAT(cellsOf({.date = november15, .averageHashRate = 5e9, .shares = 12'345}, german),
              ElementsAre("15.11.2026", "5.00 GH/s", "12.345", "—"));
  EXPECT_THAT(cellsOf({.date = november15, .rewardBTC = "x"}, english),
              ElementsAre("Nov 15, 2026", "—", "—", "—"));
}

// A pool may send any number; each has some text.
TEST(HistoryTest, ARowTakesEveryNumber) {
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

TEST(HistoryTest, DaysAreCounted) {
  EXPECT_EQ(historySubtitle({}), "");
  EXPECT_EQ(historySubtitle(std::vector<BraiinsHistoryDay>(1)), "1 day");
  EXPECT_EQ(historySubtitle(std::vector<BraiinsHistoryDay>(365)), "365 days");
}

TEST(HistoryTest, TheTotalsComeInTheirOrderAndTheExtraOnesBehindThem) {
  const std::vector<BraiinsHistoryDay> days{
      {.averageHashRate = 5e9, .shares = 12'345, .rewardBTC = "0.00012345"}};
  EXPECT_THAT(
      historySummaryMetrics(BraiinsHistorySummary(days), english, {{.title = "A", .value = "b"}}),
      ElementsAre(Metric{.title = "TOTAL", .value = "1 day"},
                  Metric{.title = "AVG HASHRATE", .value = "5.00 GH/s"},
                  Metric{.title = "ACCEPTED SHARES", .value = "12,345"},
                  Metric{.title = "CONFIRMED REWARD", .value = "12,345 sats"},
                  Metric{.title = "A", .value = "b"}));
  const auto none = historySummaryMetrics(BraiinsHistorySummary({}), english, {});
  EXPECT_EQ(none[0].value, "0 days");
  EXPECT_EQ(none[1].value, "—");
}

TEST(HistoryTest, TheValueOfTheTotalIsThereWithPricesOnly) {
  const BraiinsHistorySummary summary(std::vector<BraiinsHistoryDay>{{.rewardBTC = "0.5"}});
  BalanceState state;
  EXPECT_TRUE(historyValueMetrics(summary, state, english).empty());
  state.prices = CurrentBitcoinPrices{.eur = 3, .usd = 1};
  state.preferredFiatCurrency = PreferredFiatCurrency::usd;
  EXPECT_THAT(historyValueMetrics(summary, state, english),
              ElementsAre(Metric{.title = "VALUE · USD", .value = "0.500 $"}));
}

}  // namespace
}  // namespace orvane::test
