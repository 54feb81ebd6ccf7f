#include "services/scenario/scenario_prices.h"

#include <cmath>
#include <numbers>

#include "services/scenario/noise.h"

namespace orvane::services {
namespace {

constexpr double typicalUsd = 97'000.1;
constexpr double typicalUsdPerEur = 1.1531;
constexpr std::uint64_t tradeSeed = 7;

double wave(ScenarioSeconds elapsed, ScenarioSeconds period) {
  return std::sin(2 * std::numbers::pi * (elapsed / period));
}

double toCents(double price) { return std::round(price * 100) / 100; }

}  // namespace

ScenarioPrices pricesAt(const Moment& moment) {
  const auto minute = std::chrono::floor<std::chrono::minutes>(moment.elapsed).count();
  const double usd = typicalUsd * (1 + 0.02 * wave(moment.elapsed, std::chrono::hours(5)) +
                                   0.0005 * noise(tradeSeed, minute));
  const double usdPerEur =
      typicalUsdPerEur * (1 + 0.003 * wave(moment.elapsed, std::chrono::hours(7)));
  return {.eur = toCents(usd / usdPerEur), .usd = toCents(usd)};
}

}  // namespace orvane::services
