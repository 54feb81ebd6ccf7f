#include "shell/view_models/account_tables.h"
#include <gmock/gmock.h>

namespace orvane::test { namespace {

using namespace std::chrono_literals;
using State = BraiinsWorkerStatus::State;
using testing::ElementsAre;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::chrono::sys_seconds november15 = std::chrono::sys_days{2026y / 11 / 15};

const LocaleFormat english({.numbers = "en_US", .dates = "en_US", .timeZone = "America/New_York"});

TEST(WorkersTest, AreNamedByWhatFollowsTheFirstDot) {
  const auto name = [](const char* login) { return workerName({.fullName = login}); };
  EXPECT_EQ(name("pellam.mac"), "mac");
  EXPECT_EQ(name("a.b.c"), "b.c");
  EXPECT_EQ(name("pellam"), "pellam");
  EXPECT_EQ(name("pellam."), "pellam.");
  EXPECT_EQ(name(".a"), "a");
}

TEST(WorkersTest, NamesThatWouldReorderTheLineShowItInBothForms) {
  const BraiinsWorkerStatus disguised{.fullName = "a.\u202egnp.exe"};
  EXPECT_EQ(workerName(disguised), "\ufffdgnp.exe");
  EXPECT_EQ(workerFullName(disguised), "a.\ufffdgnp.exe");
}

TEST(WorkersTest, ThoseThatAreWellAreCounted) {
  const BraiinsWorkerStatus well{.fullName = "a", .state = State::ok};
  const BraiinsWorkerStatus low{.fullName = "a", .state = State::low};
  EXPECT_EQ(workersSubtitle({}), "");
  EXPECT_EQ(workersSubtitle(std::vector{well, low, well}), "2 of 3 OK");
  EXPECT_EQ(workersSubtitle(std::vector{well, well, well}), "3 OK");
}

TEST(HistoryTest, WholeSatoshisAreRoundedAndTheSmallestRewardsAreSeen) {
  const auto text = [](const char* sats) {
    return historySatsText(english, Decimal::parse(sats).value());
  };
  EXPECT_EQ(text("0"), "0 sats");
  EXPECT_EQ(text("0.0001"), "0.000 sats");
  EXPECT_EQ(text("0.9999"), "1.000 sats");
  EXPECT_EQ(text("-12345.5"), "-12345.500 sats");
  EXPECT_EQ(text("1"), "1 sats");
  EXPECT_EQ(text("12345.5"), "12,346 sats");
  EXPECT_EQ(text("1e1000"), "9,223,372,036,854,775,807 sats");
}

std::vector<std::string> cellsOf(const BraiinsHistoryDay& day) {
  return {historyDateText(day, english), historyHashRateText(day), historySharesText(day, english),
          historyRewardText(day, english)};
}

TEST(HistoryTest, ARowHasADashForWhatIsNotKnown) {
  EXPECT_THAT(cellsOf({.date = november15,
                       .averageHashRate = 5e9,
                       .shares = 12'345,
                       .rewardBTC = "0.00012345"}),
              ElementsAre("Nov 15, 2026", "5.00 GH/s", "12,345", "12,345 sats"));
  EXPECT_THAT(cellsOf({.date = november15}), ElementsAre("Nov 15, 2026", "—", "—", "—"));
  EXPECT_THAT(cellsOf({.date = november15, .averageHashRate = infinity, .rewardBTC = "x"}),
              ElementsAre("Nov 15, 2026", "—", "—", "—"));
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
  EXPECT_EQ(historySummaryMetrics(BraiinsHistorySummary({}), english, {})[1].value, "—");
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

}}  // namespace orvane::test
