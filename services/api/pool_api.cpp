#include "services/api/pool_api.h"

#include <algorithm>
#include <string_view>

#include <nlohmann/json.hpp>

#include "services/api/pool_documents.h"
#include "services/number_text.h"

namespace orvane::services {
namespace {

using std::chrono::sys_days;

struct DayRange {
  sys_days from;
  sys_days to;
};

/// A date written YYYY-MM-DD.
std::optional<sys_days> dateOf(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') { return std::nullopt; }
  const auto year = numberFrom<int>(text.substr(0, 4));
  const auto month = numberFrom<int>(text.substr(5, 2));
  const auto day = numberFrom<int>(text.substr(8, 2));
  if (!year || !month || !day || *month < 1 || *day < 1) { return std::nullopt; }
  const std::chrono::year_month_day date(std::chrono::year(*year),
                                         std::chrono::month(static_cast<unsigned>(*month)),
                                         std::chrono::day(static_cast<unsigned>(*day)));
  if (!date.ok()) { return std::nullopt; }
  return sys_days(date);
}

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
