#include "core/display_texts.h"
#include <cmath>
#include <cstdlib>
#include <fmt/format.h>
#include "platform/decimal/decimal.h"
#include "prices/bitcoin_prices.h"

namespace orvane {
namespace {
struct HashRateUnit {
  double factor;  ///< hashes per second
  std::string_view text;
};

constexpr HashRateUnit hashRateUnits[] = {
    {.factor = 1e12, .text = "TH/s"},
    {.factor = 1e9, .text = "GH/s"},
    {.factor = 1e6, .text = "MH/s"},
    {.factor = 1e3, .text = "kH/s"},
};
constexpr double highestHashRate = 1e14;

std::string btcText(std::int64_t sats) {
  const std::int64_t whole = sats / satsPerBTC;
  const std::int64_t fraction = sats % satsPerBTC;
  return fmt::format("{}{}.{:08}", sats < 0 ? "-" : "", std::abs(whole), std::abs(fraction));
}
}  // namespace

std::string amountNumberText(const BalanceState& state, const LocaleFormat& format,
                             std::int64_t sats) {
  switch (state.unit) {
    case BalanceUnit::sats:
      return format.integer(sats);
    case BalanceUnit::btc:
      return btcText(sats);
  }
  return {};
}

std::string amountText(const BalanceState& state, const LocaleFormat& format, std::int64_t sats) {
  const std::string_view word = state.unit == BalanceUnit::btc ? " BTC" : " sats";
  return amountNumberText(state, format, sats).append(word);
}

std::string menuBarTitle(const BalanceState& state, const LocaleFormat& format) {
  if (state.stats && state.addressSummary) {
    return amountNumberText(state, format, state.stats->balanceSats) + " | " +
           amountText(state, format, state.addressSummary->confirmedSats);
  }
  if (state.stats) { return amountText(state, format, state.stats->balanceSats); }
  if (state.addressSummary) {
    return amountText(state, format, state.addressSummary->confirmedSats);
  }
  return {};
}

std::optional<std::string> fiatText(const BalanceState& state, const LocaleFormat& format,
                                    double sats) {
  if (!state.prices) { return std::nullopt; }
  return fiatValueText(format, state.preferredFiatCurrency, sats, *state.prices);
}

std::optional<std::string> priceText(const BalanceState& state, const LocaleFormat& format) {
  if (!state.prices) { return std::nullopt; }
  return rateText(format, state.preferredFiatCurrency, *state.prices);
}

std::string hashRateText(double hashesPerSecond) {
  if (!std::isfinite(hashesPerSecond) || hashesPerSecond < 0 || hashesPerSecond > highestHashRate) {
    return "—";
  }
  for (const HashRateUnit& unit : hashRateUnits) {
    if (unit.factor <= hashesPerSecond) {
      return fmt::format("{:.2f} {}", hashesPerSecond / unit.factor, unit.text);
    }
  }
  return fmt::format("{:.0f} H/s", hashesPerSecond);
}

std::string updatedText(const LocaleFormat& format, WallTime time) {
  return "Updated " + format.shortTime(time);
}

std::string lastShareText(const LocaleFormat& format,
                          std::optional<std::chrono::sys_seconds> lastShare) {
  return lastShare ? "Last share " + format.mediumDateShortTime(*lastShare) : std::string();
}

std::string poolStatusLine(const BalanceState& state, const LocaleFormat& format) {
  if (state.accountStatus) { return *state.accountStatus; }
  if (!state.lastUpdate) {
    return state.expectsAccount() ? "Asking Braiins…"
                                  : "Paste a read-only Braiins API token below to start.";
  }
  std::string line = updatedText(format, *state.lastUpdate);
  if (const auto price = priceText(state, format)) { line += " · " + *price; }
  return line + " · refreshes every 5 minutes";
}

std::string addressStatusLine(const BalanceState& state, const LocaleFormat& format) {
  if (state.addressStatus) { return *state.addressStatus; }
  if (!state.addressLastUpdate) { return "Asking Chainpeek…"; }
  return updatedText(format, *state.addressLastUpdate) +
         " · Chainpeek · refreshes every 10 minutes";
}

std::string poolErrorText(PoolError error, std::string_view word) {
  if (error.kind == PoolError::Kind::userAuthenticationRequired) {
    return "Braiins did not accept the API token. Check it in Settings below.";
  }
  if (error.kind == PoolError::Kind::transport && meansUnreachable(error.failure)) {
    return "Braiins could not be reached. The last figures stay until the next try.";
  }
  return fmt::format("The Braiins {} could not be loaded. The next try is in 5 minutes.", word);
}

std::string explorerErrorText() {
  return "Chainpeek could not be reached. The last figures stay until the next try in 10 minutes.";
}
}  // namespace orvane
