#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "services/scenario/scenario_pool.h"

namespace orvane::test {
namespace {

using namespace std::chrono_literals;
using services::Moment;
using services::PoolWorker;

constexpr std::chrono::sys_seconds start{std::chrono::seconds(1'794'819'600)};  // 2026-11-16 09:00

Moment after(std::chrono::seconds time) { return {.elapsed = time, .calendar = start + time}; }

TEST(PoolScenarioTest, OneWorkerGoesLowThenOffThenComesBack) {
  std::vector<std::string> states;
  // As a client sees it that asks for the workers a minute after each five-minute refresh.
  for (const auto time : {60s, 360s, 660s, 960s}) {
    const auto workers = workersAt(after(time));
    const PoolWorker worker = *std::ranges::find(workers, "larkspur.attic-s9", &PoolWorker::name);
    states.push_back(worker.state);
    EXPECT_EQ(worker.rate5m == 0, worker.state == "off");
  }
  EXPECT_EQ(states, (std::vector<std::string>{"ok", "low", "off", "ok"}));
}

TEST(PoolScenarioTest, HistoryHasGapsAndIsTheSameWheneverItIsAskedFor) {
  const auto days = daysBefore(after(0s));
  EXPECT_EQ(days.size(), 365U);
  EXPECT_GE(std::ranges::count_if(days, [](const auto& day) { return !day.rate; }), 5);
  EXPECT_GE(std::ranges::count_if(days, [](const auto& day) { return !day.rewardSats; }), 5);
  const auto evening = daysBefore(after(10h)).back();
  EXPECT_EQ(days.back().date, evening.date);
  EXPECT_EQ(days.back().rewardSats, evening.rewardSats);
}

}  // namespace
}  // namespace orvane::test
