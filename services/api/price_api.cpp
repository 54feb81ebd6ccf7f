#include "services/api/price_api.h"

#include <array>
#include <string_view>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "services/scenario/scenario_prices.h"

namespace orvane::services {
namespace {

struct Rate {
  std::string_view currency;
  double perUsd;
};

/// Rates that nobody asks for, so that a client has to pick its own out of a crowd.
constexpr std::array otherRates{
    Rate{"AUD", 1.5401}, Rate{"CAD", 1.4022},   Rate{"CHF", 0.8087}, Rate{"CNY", 7.1102},
    Rate{"CZK", 20.981}, Rate{"ETH", 0.000321}, Rate{"GBP", 0.7598}, Rate{"JPY", 156.42},
    Rate{"NOK", 10.213}, Rate{"PLN", 3.6711},   Rate{"SEK", 9.5307},
};

}  // namespace

Response priceAnswer(const Request& request, const Moment& moment) {
  if (request.target != "/api/v3/simple/price?ids=bitcoin&vs_currencies=eur,usd") {
    return textResponse(404, "There is nothing here");
  }
  const ScenarioPrices prices = pricesAt(moment);
  return {.body = nlohmann::json{{"bitcoin", {{"eur", prices.eur}, {"usd", prices.usd}}}}.dump()};
}

Response fallbackPriceAnswer(const Request& request, const Moment& moment) {
  if (request.target != "/v2/exchange-rates?currency=BTC") {
    return textResponse(404, "There is nothing here");
  }
  const ScenarioPrices prices = pricesAt(moment);
  nlohmann::json rates{{"BTC", "1"},
                       {"EUR", fmt::format("{:.2f}", prices.eur)},
                       {"USD", fmt::format("{:.2f}", prices.usd)}};
  for (const Rate& rate : otherRates) {
    rates[std::string(rate.currency)] = fmt::format("{:.4f}", rate.perUsd * prices.usd);
  }
  return {.body = nlohmann::json{{"data", {{"currency", "BTC"}, {"rates", rates}}}}.dump()};
}

}  // namespace orvane::services
