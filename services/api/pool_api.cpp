#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include "services/api/answers.h"
#include "services/number_text.h"
#include "services/scenario/pool_story.h"

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

/// A date written YYYY-MM-DD.
std::optional<std::chrono::sys_days> dateOf(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') { return std::nullopt; }
  const auto year = numberFrom<int>(text.substr(0, 4));
  const auto month = numberFrom<int>(text.substr(5, 2));
  const auto day = numberFrom<int>(text.substr(8, 2));
  if (!year || !month || !day || *month < 1 || *day < 1) { return std::nullopt; }
  const std::chrono::year_month_day date(std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned>(*month)),
                                         std::chrono::day(static_cast<unsigned>(*day)));
  return date.ok() ? std::optional(std::chrono::sys_days(date)) : std::nullopt;
}

struct DayRange {
  std::chrono::sys_days from;
  std::chrono::sys_days to;
};

/// A query of the form from=YYYY-MM-DD&to=YYYY-MM-DD.
std::optional<DayRange> dayRange(std::string_view query) {
  constexpr std::string_view fromName = "from=";
  constexpr std::string_view toName = "to=";
  const auto separator = query.find('&');
  if (separator == std::string_view::npos || !query.starts_with(fromName)) { return std::nullopt; }
  const std::string_view rest = query.substr(separator + 1);
  if (!rest.starts_with(toName)) { return std::nullopt; }
  const auto from = dateOf(query.substr(fromName.size(), separator - fromName.size()));
  const auto to = dateOf(rest.substr(toName.size()));
  if (!from || !to) { return std::nullopt; }
  return DayRange{*from, *to};
}

Response document(const nlohmann::json& json) { return {.body = json.dump()}; }

Response rewards(std::string_view query, const Moment& moment) {
  const std::optional<DayRange> range = dayRange(query);
  if (!range) { return textResponse(400, "The query is from=YYYY-MM-DD&to=YYYY-MM-DD"); }
  std::vector<PoolDay> days = daysBefore(moment);
  std::erase_if(days,
                [&](const PoolDay& day) { return day.date < range->from || day.date > range->to; });
  return document(rewardsDocument(days));
}

bool isAuthorized(const Request& request, const std::optional<std::string>& token) {
  if (!token) { return true; }
  const std::string* const sent = request.header("Pool-Auth-Token");
  return sent != nullptr && *sent == *token;
}
}  // namespace

Response poolAnswer(const Request& request, const Moment& moment,
                    const std::optional<std::string>& token) {
  if (!isAuthorized(request, token)) { return textResponse(401, "The token is not known"); }
  if (request.path() == "/accounts/rewards/json/btc") { return rewards(request.query(), moment); }
  if (request.target == "/accounts/profile/json/btc/") {
    return document(profileDocument(accountAt(moment)));
  }
  if (request.target == "/accounts/workers/json/btc/") {
    return document(workersDocument(workersAt(moment)));
  }
  if (request.target == "/accounts/hash_rate_daily/json/group/btc") {
    return document(dailyHashRateDocument(daysBefore(moment)));
  }
  return textResponse(404, "There is nothing here");
}
}  // namespace orvane::services
