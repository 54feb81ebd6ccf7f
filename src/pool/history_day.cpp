#include "pool/history_day.h"

#include <cstddef>

#include "pool/pool_figures.h"
#include "pool/saturating.h"

namespace orvane {
namespace {

std::optional<double> meanHashRate(std::span<const BraiinsHistoryDay> days) {
  double sum = 0;
  std::size_t count = 0;
  for (const BraiinsHistoryDay& day : days) {
    if (day.averageHashRate) {
      sum += *day.averageHashRate;
      ++count;
    }
  }
  return count == 0 ? std::nullopt : std::optional(sum / static_cast<double>(count));
}

Decimal sumOfRewards(std::span<const BraiinsHistoryDay> days) {
  Decimal bitcoins;
  for (const BraiinsHistoryDay& day : days) {
    if (const auto reward = day.rewardBTC ? Decimal::parse(*day.rewardBTC) : std::nullopt) {
      bitcoins = bitcoins + *reward;
    }
  }
  return bitcoins * satsPerBTC;
}

}  // namespace

BraiinsHistorySummary::BraiinsHistorySummary(std::span<const BraiinsHistoryDay> days)
    : dayCount(static_cast<std::int64_t>(days.size())),
      averageHashRate(meanHashRate(days)),
      totalRewardSats(sumOfRewards(days)) {
  for (const BraiinsHistoryDay& day : days) {
    totalShares = saturatingSum(totalShares, day.shares.value_or(0));
  }
}

}  // namespace orvane
