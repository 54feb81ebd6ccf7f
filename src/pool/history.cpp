#include "pool/history.h"
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <map>
#include <utility>
#include <nlohmann/json.hpp>
#include "platform/json/json_reader.h"
#include "platform/text/unicode.h"
#include "pool/pool_documents.h"

namespace orvane {
namespace {
using std::chrono::seconds;
using std::chrono::sys_seconds;

using HashrateDays = std::vector<BraiinsDailyHashrateResponse::Day>;
using DaysByTime = std::map<sys_seconds, BraiinsHistoryDay, std::greater<sys_seconds>>;

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

HashrateDays hashrateDays(std::optional<std::string_view> body) {
  std::optional<BraiinsDailyHashrateResponse> response;
  if (body) { response = decodeDailyHashrate(*body); }
  return response ? currencyEntry(std::move(response->values)) : HashrateDays{};
}

void addReward(DaysByTime& days, BraiinsRewardsResponse::Reward reward) {
  const sys_seconds time{seconds(reward.date)};
  days.insert_or_assign(
      time, BraiinsHistoryDay{.date = time, .rewardBTC = std::move(reward.totalReward)});
}

void addHashrate(DaysByTime& days, const BraiinsDailyHashrateResponse::Day& hashrate) {
  const sys_seconds time{seconds(hashrate.date)};
  BraiinsHistoryDay& day = days[time];
  day.date = time;
  day.averageHashRate = hashrate.hashRate24h * hashRateUnitFactor(hashrate.hashRateUnit);
  day.shares = sharesFromPoolFigure(hashrate.totalShares);
}

bool isWorthKeeping(const BraiinsHistoryDay& day) {
  return day.averageHashRate.value_or(0) > 0 || day.shares.value_or(0) >= 1 ||
         Decimal::parse(day.rewardBTC.value_or("0")).value_or(0) > Decimal(0);
}

// The stored form counts from 2001.
constexpr std::int64_t from1970To2001 = 978'307'200;

bool isEncodable(const BraiinsHistoryDay& day) {
  return std::isfinite(day.averageHashRate.value_or(0)) &&
         isValidUtf8(day.rewardBTC.value_or(std::string()));
}

nlohmann::json encodeDay(const BraiinsHistoryDay& day) {
  nlohmann::json object;
  object["date"] = saturatingDifference(day.date.time_since_epoch().count(), from1970To2001);
  if (day.averageHashRate) { object["averageHashRate"] = *day.averageHashRate; }
  if (day.shares) { object["shares"] = *day.shares; }
  if (day.rewardBTC) { object["rewardBTC"] = *day.rewardBTC; }
  return object;
}

sys_seconds readDate(JsonValue value, JsonMatch& match) {
  const std::optional<double> number = value.number();
  if (!number) {
    match.fail();
    return {};
  }
  const std::int64_t since2001 = value.integer().value_or(saturatedToInt64(std::floor(*number)));
  return sys_seconds(seconds(saturatingSum(since2001, from1970To2001)));
}

BraiinsHistoryDay readDay(JsonValue value, JsonMatch& match) {
  const JsonObjectReader day(value, match);
  return {.date = readDate(day.value("date"), match),
          .averageHashRate = day.optionalNumber("averageHashRate"),
          .shares = day.optionalInteger("shares"),
          .rewardBTC = day.optionalText("rewardBTC")};
}

std::vector<BraiinsHistoryDay> readDays(JsonValue value, JsonMatch& match) {
  return readJsonArray(value, match, readDay);
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

std::optional<std::vector<BraiinsHistoryDay>> buildHistoryDays(
    std::string_view rewardsBody, std::optional<std::string_view> dailyHashrateBody) {
  std::optional<BraiinsRewardsResponse> rewards = decodeRewards(rewardsBody);
  if (!rewards) { return std::nullopt; }
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

std::optional<std::string> encodeHistory(std::span<const BraiinsHistoryDay> days) {
  if (!std::ranges::all_of(days, isEncodable)) { return std::nullopt; }
  nlohmann::json list = nlohmann::json::array();
  for (const BraiinsHistoryDay& day : days) {
    list.push_back(encodeDay(day));
  }
  return list.dump();
}

std::optional<std::vector<BraiinsHistoryDay>> decodeHistory(std::string_view bytes) {
  return decodeJson(bytes, readDays);
}
}  // namespace orvane
