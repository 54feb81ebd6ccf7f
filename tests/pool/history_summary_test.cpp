#include <limits>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "pool/history.h"

namespace orvane::test {
namespace {

BraiinsHistoryDay rewardOf(const std::string& amount) { return {.rewardBTC = amount}; }
BraiinsHistoryDay rateOf(double rate) { return {.averageHashRate = rate}; }
BraiinsHistoryDay sharesOf(std::int64_t shares) { return {.shares = shares}; }

TEST(HistorySummaryTest, AveragesOnlyDaysThatHaveARate) {
  const std::vector<BraiinsHistoryDay> days{rateOf(0), rewardOf("1"), rateOf(10)};
  EXPECT_EQ(BraiinsHistorySummary(days).dayCount, 3);
  EXPECT_EQ(BraiinsHistorySummary(days).averageHashRate, 5);
  EXPECT_EQ(BraiinsHistorySummary(std::vector{rewardOf("1")}).averageHashRate, std::nullopt);
  EXPECT_EQ(BraiinsHistorySummary({}).averageHashRate, std::nullopt);
}

TEST(HistorySummaryTest, AddsRewardsInDecimalAndSkipsTextsThatAreNoNumbers) {
  const std::vector<BraiinsHistoryDay> days{rewardOf("0.00012345"), rewardOf("0.5"), rewardOf("x"),
                                            rateOf(1), rewardOf("")};
  EXPECT_EQ(BraiinsHistorySummary(days).totalRewardSats, Decimal(50'012'345));
  const std::vector<BraiinsHistoryDay> fractions{rewardOf("0.000000001"), rewardOf("0.000000002")};
  EXPECT_EQ(BraiinsHistorySummary(fractions).totalRewardSats, Decimal::parse("0.3"));
}

TEST(HistorySummaryTest, SharesStopAtTheEndsOfTheirRange) {
  constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
  EXPECT_EQ(BraiinsHistorySummary(std::vector{sharesOf(2), rateOf(1), sharesOf(3)}).totalShares, 5);
  for (const auto& [one, other, total] : {std::tuple{largest, std::int64_t{1}, largest},
                                          std::tuple{smallest, std::int64_t{-1}, smallest}}) {
    EXPECT_EQ(BraiinsHistorySummary(std::vector{sharesOf(one), sharesOf(other)}).totalShares,
              total);
    EXPECT_EQ(BraiinsHistorySummary(std::vector{sharesOf(other), sharesOf(one)}).totalShares,
              total);
  }
}

}  // namespace
}  // namespace orvane::test
