#include "services/api/pool_documents.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace orvane::services {
namespace {

constexpr std::int64_t satsPerBitcoin = 100'000'000;

struct Unit {
  std::string_view text;
  double hashes;
};

constexpr std::array units{Unit{"Mh/s", 1e6}, Unit{"Gh/s", 1e9}, Unit{"Th/s", 1e12},
                           Unit{"Ph/s", 1e15}};

std::string bitcoinText(std::int64_t sats) {
  return fmt::format("{}.{:08}", sats / satsPerBitcoin, sats % satsPerBitcoin);
}

/// The rate in the unit, to six decimals.
double inUnit(double rate, std::string_view unit) {
  const auto found = std::ranges::find(units, unit, &Unit::text);
  const double scaled = found == units.end() ? rate : rate / found->hashes;
  return std::round(scaled * 1e6) / 1e6;
}

std::int64_t poolShares(double shares) { return std::llround(shares) * 1024; }

std::int64_t secondsOf(std::chrono::sys_seconds time) { return time.time_since_epoch().count(); }

nlohmann::json workerObject(const PoolWorker& worker) {
  nlohmann::json object = nlohmann::json::object();
  if (worker.unit.empty()) { return object; }
  object["state"] = worker.state;
  object["hash_rate_unit"] = worker.unit;
  object["hash_rate_5m"] = inUnit(worker.rate5m, worker.unit);
  object["hash_rate_60m"] = inUnit(worker.rate60m, worker.unit);
  object["hash_rate_24h"] = inUnit(worker.rate24h, worker.unit);
  object["hash_rate_scoring"] = object["hash_rate_60m"];
  if (worker.lastShare) { object["last_share"] = secondsOf(*worker.lastShare); }
  return object;
}

}  // namespace

nlohmann::json profileDocument(const PoolAccount& account) {
  return {{"username", "larkspur"},
          {"btc",
           {{"hash_rate_unit", "Gh/s"},
            {"hash_rate_60m", inUnit(account.rate60m, "Gh/s")},
            {"shares_24h", poolShares(account.shares24h)},
            {"today_reward", bitcoinText(account.todayRewardSats)},
            {"current_balance", bitcoinText(account.balanceSats)}}}};
}

nlohmann::json workersDocument(const std::vector<PoolWorker>& workers) {
  nlohmann::json named = nlohmann::json::object();
  for (const PoolWorker& worker : workers) {
    named[worker.name] = workerObject(worker);
  }
  return {{"btc", {{"workers", named}}}};
}

nlohmann::json rewardsDocument(const std::vector<PoolDay>& days) {
  nlohmann::json rewards = nlohmann::json::array();
  for (const PoolDay& day : days) {
    if (!day.rewardSats) { continue; }
    rewards.push_back({{"date", secondsOf(day.date)},
                       {"total_reward", bitcoinText(*day.rewardSats)},
                       {"mining_reward", bitcoinText(*day.rewardSats)}});
  }
  return {{"btc", {{"daily_rewards", rewards}}}};
}

nlohmann::json dailyHashRateDocument(const std::vector<PoolDay>& days) {
  nlohmann::json entries = nlohmann::json::array();
  for (const PoolDay& day : days) {
    if (!day.rate) { continue; }
    entries.push_back({{"date", secondsOf(day.date)},
                       {"hash_rate_unit", "Gh/s"},
                       {"hash_rate_24h", inUnit(*day.rate, "Gh/s")},
                       {"total_shares", poolShares(day.shares)}});
  }
  return {{"btc", entries}};
}

}  // namespace orvane::services
