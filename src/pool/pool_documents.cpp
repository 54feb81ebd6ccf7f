#include "pool/pool_documents.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <ranges>
#include <fmt/format.h>
#include "platform/decimal/decimal.h"
#include "platform/text/unicode.h"

namespace orvane {
namespace {
struct HashRateUnit {
  std::string_view name;
  std::string_view shortName;
  double factor;
};

constexpr std::array hashRateUnits{
    HashRateUnit{.name = "h/s", .shortName = "hs", .factor = 1},
    HashRateUnit{.name = "kh/s", .shortName = "khs", .factor = 1e3},
    HashRateUnit{.name = "mh/s", .shortName = "mhs", .factor = 1e6},
    HashRateUnit{.name = "gh/s", .shortName = "ghs", .factor = 1e9},
    HashRateUnit{.name = "th/s", .shortName = "ths", .factor = 1e12},
    HashRateUnit{.name = "ph/s", .shortName = "phs", .factor = 1e15},
};

constexpr std::size_t longestWorkerName = 1000;

/// Whether a name is one that a person may have given, and not one that is dear to normalize.
bool isWorkerName(std::string_view name) {
  return characterCount(name) <= longestWorkerName && isStreamSafe(name);
}

constexpr double sharesPerFigure = 0.0009765625;

BraiinsProfileResponse readProfile(JsonValue root, JsonMatch& match) {
  const JsonObjectReader document(root, match);
  const JsonObjectReader profile(document.value("btc"), match);
  return {.btc = {.hashRateUnit = profile.text("hash_rate_unit"),
                  .hashRate60m = profile.number("hash_rate_60m"),
                  .shares24h = profile.number("shares_24h"),
                  .todayReward = profile.text("today_reward"),
                  .currentBalance = profile.text("current_balance")}};
}

BraiinsWorkersResponse::Worker readWorker(JsonValue value, JsonMatch& match) {
  const JsonObjectReader worker(value, match);
  return {.state = worker.optionalText("state"),
          .lastShare = worker.optionalInteger("last_share"),
          .hashRateUnit = worker.optionalText("hash_rate_unit"),
          .hashRate5m = worker.optionalNumber("hash_rate_5m"),
          .hashRate60m = worker.optionalNumber("hash_rate_60m"),
          .hashRate24h = worker.optionalNumber("hash_rate_24h")};
}

BraiinsWorkersResponse::BTC readWorkersOfCurrency(JsonValue value, JsonMatch& match) {
  const JsonObjectReader currency(value, match);
  BraiinsWorkersResponse::BTC entry{
      .workers = readJsonMembers(currency.value("workers"), match, readWorker)};
  const auto names = entry.workers | std::views::keys;
  if (!std::ranges::all_of(names, isWorkerName)) { match.fail(); }
  return entry;
}

BraiinsWorkersResponse readWorkers(JsonValue root, JsonMatch& match) {
  return {.values = readJsonMembers(root, match, readWorkersOfCurrency)};
}

BraiinsRewardsResponse::Reward readReward(JsonValue value, JsonMatch& match) {
  const JsonObjectReader reward(value, match);
  return {.date = reward.integer("date"), .totalReward = reward.text("total_reward")};
}

BraiinsRewardsResponse readRewards(JsonValue root, JsonMatch& match) {
  const JsonObjectReader document(root, match);
  const JsonObjectReader currency(document.value("btc"), match);
  return {
      .btc = {.dailyRewards = readJsonArray(currency.value("daily_rewards"), match, readReward)}};
}

BraiinsDailyHashrateResponse::Day readDay(JsonValue value, JsonMatch& match) {
  const JsonObjectReader day(value, match);
  return {.date = day.integer("date"),
          .hashRateUnit = day.text("hash_rate_unit"),
          .hashRate24h = day.number("hash_rate_24h"),
          .totalShares = day.number("total_shares")};
}

std::vector<BraiinsDailyHashrateResponse::Day> readDaysOfGroup(JsonValue value, JsonMatch& match) {
  return readJsonArray(value, match, readDay);
}

BraiinsDailyHashrateResponse readDailyHashrate(JsonValue root, JsonMatch& match) {
  return {.values = readJsonMembers(root, match, readDaysOfGroup)};
}
}  // namespace

std::optional<BraiinsProfileResponse> decodeProfile(std::string_view body) {
  return decodeJson(body, readProfile);
}

std::optional<BraiinsWorkersResponse> decodeWorkers(std::string_view body) {
  return decodeJson(body, readWorkers);
}

std::optional<BraiinsRewardsResponse> decodeRewards(std::string_view body) {
  return decodeJson(body, readRewards);
}

std::optional<BraiinsDailyHashrateResponse> decodeDailyHashrate(std::string_view body) {
  return decodeJson(body, readDailyHashrate);
}

std::string utcDateText(std::chrono::sys_seconds moment) {
  using namespace std::chrono;
  constexpr sys_seconds first = sys_days(year(0) / 1 / 1);
  constexpr sys_seconds last = sys_days(year(9999) / 12 / 31);
  const year_month_day day(floor<days>(std::clamp(moment, first, last)));
  return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(day.year()),
                     static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
}

double hashRateUnitFactor(std::string_view unit) {
  const std::string name = asciiLowercased(trimmed(unit));
  for (const HashRateUnit& known : hashRateUnits) {
    if (name == known.name || name == known.shortName) { return known.factor; }
  }
  return 1;
}

std::int64_t satsFromBTCText(std::string_view text) {
  std::optional<Decimal> bitcoins = Decimal::parse(text);
  return bitcoins ? (*std::move(bitcoins) * satsPerBTC).toInt64() : 0;
}

std::int64_t sharesFromPoolFigure(double figure) {
  return saturatedToInt64(std::round(figure * sharesPerFigure));
}
}  // namespace orvane
