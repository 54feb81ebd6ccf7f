#include <array>
#include <cmath>
#include <numbers>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include "services/api/answers.h"
#include "services/scenario/noise.h"

namespace orvane::services {
namespace {
constexpr double typicalUsd = 97'000.1;
constexpr double typicalUsdPerEur = 1.1531;
constexpr std::uint64_t tradeSeed = 7;

/// What one bitcoin costs.
struct Prices {
  double eur = 0;
  double usd = 0;
};

double wave(ScenarioSeconds elapsed, ScenarioSeconds period) {
  return std::sin(2 * std::numbers::pi * (elapsed / period));
}

double toCents(double price) { return std::round(price * 100) / 100; }

Prices pricesAt(const Moment& moment) {
  const auto minute = std::chrono::floor<std::chrono::minutes>(moment.elapsed).count();
  const double usd = typicalUsd * (1 + 0.02 * wave(moment.elapsed, std::chrono::hours(5)) +
                                   0.0005 * noise(tradeSeed, minute));
  const double usdPerEur =
      typicalUsdPerEur * (1 + 0.003 * wave(moment.elapsed, std::chrono::hours(7)));
  return {.eur = toCents(usd / usdPerEur), .usd = toCents(usd)};
}

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
  const Prices prices = pricesAt(moment);
  return {.body = nlohmann::json{{"bitcoin", {{"eur", prices.eur}, {"usd", prices.usd}}}}.dump()};
}

Response fallbackPriceAnswer(const Request& request, const Moment& moment) {
  if (request.target != "/v2/exchange-rates?currency=BTC") {
    return textResponse(404, "There is nothing here");
  }
  const Prices prices = pricesAt(moment);
  nlohmann::json rates{{"BTC", "1"},
                       {"EUR", fmt::format("{:.2f}", prices.eur)},
                       {"USD", fmt::format("{:.2f}", prices.usd)}};
  for (const Rate& rate : otherRates) {
    rates[std::string(rate.currency)] = fmt::format("{:.4f}", rate.perUsd * prices.usd);
  }
  return {.body = nlohmann::json{{"data", {{"currency", "BTC"}, {"rates", rates}}}}.dump()};
}
}  // namespace orvane::services
