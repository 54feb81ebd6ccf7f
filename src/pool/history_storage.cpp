#include "pool/history_storage.h"

#include <algorithm>
#include <cmath>

#include <nlohmann/json.hpp>

#include "platform/json/json_decoding.h"
#include "platform/text/unicode.h"
#include "pool/saturating.h"

namespace orvane {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

constexpr std::int64_t from1970To2001 = 978'307'200;

bool isEncodable(const BraiinsHistoryDay& day) {
  return std::isfinite(day.averageHashRate.value_or(0)) &&
         isValidUtf8(day.rewardBTC.value_or(std::string()));
}

nlohmann::json encodeDay(const BraiinsHistoryDay& day) {
  nlohmann::json object;
  object["date"] = saturatingSum(day.date.time_since_epoch().count(), -from1970To2001);
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
