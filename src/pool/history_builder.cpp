#include "pool/history_builder.h"

#include <functional>
#include <map>
#include <utility>

#include "pool/pool_decoding.h"
#include "pool/pool_figures.h"

namespace orvane {
namespace {

using HashrateDays = std::vector<BraiinsDailyHashrateResponse::Day>;
using DaysByTime =
    std::map<std::chrono::sys_seconds, BraiinsHistoryDay, std::greater<std::chrono::sys_seconds>>;

std::chrono::sys_seconds timeOf(std::int64_t secondsSince1970) {
  return std::chrono::sys_seconds(std::chrono::seconds(secondsSince1970));
}

HashrateDays hashrateDays(std::optional<std::string_view> body) {
  std::optional<BraiinsDailyHashrateResponse> response;
  if (body) { response = decodeDailyHashrate(*body); }
  return response ? currencyEntry(std::move(response->values)) : HashrateDays{};
}

void addReward(DaysByTime& days, BraiinsRewardsResponse::Reward reward) {
  const std::chrono::sys_seconds time = timeOf(reward.date);
  days.insert_or_assign(
      time, BraiinsHistoryDay{.date = time, .rewardBTC = std::move(reward.totalReward)});
}

void addHashrate(DaysByTime& days, const BraiinsDailyHashrateResponse::Day& hashrate) {
  const std::chrono::sys_seconds time = timeOf(hashrate.date);
  BraiinsHistoryDay& day = days[time];
  day.date = time;
  day.averageHashRate = hashrate.hashRate24h * hashRateUnitFactor(hashrate.hashRateUnit);
  day.shares = sharesFromPoolFigure(hashrate.totalShares);
}

bool hasReward(const BraiinsHistoryDay& day) {
  return Decimal::parse(day.rewardBTC.value_or("0")).value_or(0) > Decimal(0);
}

bool isWorthKeeping(const BraiinsHistoryDay& day) {
  return day.averageHashRate.value_or(0) > 0 || day.shares.value_or(0) >= 1 || hasReward(day);
}

}  // namespace

std::expected<std::vector<BraiinsHistoryDay>, PoolError> buildHistoryDays(
    std::string_view rewardsBody, std::optional<std::string_view> dailyHashrateBody) {
  std::optional<BraiinsRewardsResponse> rewards = decodeRewards(rewardsBody);
  if (!rewards) { return std::unexpected(PoolError{.kind = PoolError::Kind::decoding}); }
  DaysByTime days;
  for (BraiinsRewardsResponse::Reward& reward : rewards->btc.dailyRewards) {
    addReward(days, std::move(reward));
  }
  for (const BraiinsDailyHashrateResponse::Day& hashrate : hashrateDays(dailyHashrateBody)) {
    addHashrate(days, hashrate);
  }
  std::vector<BraiinsHistoryDay> kept;
  kept.reserve(days.size());
  for (auto& [time, day] : days) {
    if (isWorthKeeping(day)) { kept.push_back(std::move(day)); }
  }
  return kept;
}

}  // namespace orvane
