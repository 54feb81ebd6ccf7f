#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "services/scenario/scenario_pool.h"
#include "services/scenario/scenario_prices.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using services::Moment;
using services::PoolWorker;

constexpr std::chrono::sys_seconds start{std::chrono::seconds(1'794'819'600)};  // 2026-11-16 09:00

Moment after(std::chrono::seconds time) { return {.elapsed = time, .calendar = start + time}; }

PoolWorker workerOfStory(const Moment& moment) {
  const auto workers = workersAt(moment);
  return *std::ranges::find(workers, "larkspur.attic-s9", &PoolWorker::name);
}

TEST(PoolScenarioTest, OneWorkerGoesLowThenOffThenComesBack) {
  std::vector<std::string> states;
  // As a client sees it that asks for the workers a minute after each five-minute refresh.
  for (const auto time : {60s, 360s, 660s, 960s, 1260s}) {
    states.push_back(workerOfStory(after(time)).state);
  }
  EXPECT_EQ(states, (std::vector<std::string>{"ok", "low", "off", "ok", "ok"}));
}

TEST(PoolScenarioTest, WorkerThatIsOffHasNoRateAndItsLastShareAges) {
  const PoolWorker early = workerOfStory(after(610s));
  const PoolWorker late = workerOfStory(after(890s));
  EXPECT_EQ(early.rate5m, 0);
  EXPECT_EQ(early.lastShare, late.lastShare);
  EXPECT_LT(*late.lastShare, start + 600s);
}

TEST(PoolScenarioTest, BalanceGrowsWithTheRewardAlsoAcrossMidnight) {
  auto before = accountAt(after(0s));
  for (const auto time : {5min, 60min, 840min, 960min, 2880min}) {
    const auto account = accountAt(after(time));
    EXPECT_GT(account.balanceSats, before.balanceSats);
    before = account;
  }
  const auto evening = accountAt(after(14h));
  const auto nextMorning = accountAt(after(16h));
  EXPECT_LT(nextMorning.todayRewardSats, evening.todayRewardSats);
  EXPECT_NEAR(static_cast<double>(accountAt(after(24h)).balanceSats), 198'765 + 12'345, 2'500);
}

TEST(PoolScenarioTest, AccountRateIsTheSumOfTheWorkers) {
  double sum = 0;
  for (const PoolWorker& worker : workersAt(after(100s)))
    sum += worker.rate60m;
  EXPECT_DOUBLE_EQ(accountAt(after(100s)).rate60m, sum);
}

TEST(PoolScenarioTest, HistoryHasDaysWithoutRateWithoutRewardAndWithNothing) {
  const auto days = daysBefore(after(0s));
  EXPECT_EQ(days.size(), 365U);
  EXPECT_GE(std::ranges::count_if(days, [](const auto& day) { return !day.rate; }), 5);
  EXPECT_GE(std::ranges::count_if(days, [](const auto& day) { return !day.rewardSats; }), 5);
  EXPECT_GE(std::ranges::count_if(
                days, [](const auto& day) { return day.rewardSats == 0 && day.rate == 0.0; }),
            4);
}

TEST(PoolScenarioTest, YesterdayLooksTheSameWheneverItIsAskedFor) {
  const auto morning = daysBefore(after(0s)).back();
  const auto evening = daysBefore(after(10h)).back();
  EXPECT_EQ(morning.date, evening.date);
  EXPECT_EQ(morning.rewardSats, evening.rewardSats);
  EXPECT_EQ(morning.rate, evening.rate);
}

TEST(PoolScenarioTest, PricesDriftButNotFar) {
  const double opening = pricesAt(after(0s)).usd;
  EXPECT_NE(pricesAt(after(10min)).usd, opening);
  for (auto time = 0s; time < 24h; time += 10min) {
    EXPECT_NEAR(pricesAt(after(time)).usd, opening, opening * 0.03);
  }
}

}  // namespace
}  // namespace orvane::test
