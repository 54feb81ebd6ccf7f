#include "core/stored_settings.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "pool/history.h"

namespace orvane {

namespace {

namespace key {

constexpr std::string_view unit = "balance.unit";
constexpr std::string_view preferredFiatCurrency = "balance.preferredFiatCurrency";
constexpr std::string_view ownAddress = "balance.watchedAddress";
constexpr std::string_view history = "balance.braiinsHistory";

}  // namespace key

constexpr std::string_view rawSats = "sats";
constexpr std::string_view rawBtc = "btc";

}  // namespace

BalanceUnit StoredSettings::unit() const {
  return defaults_.text(key::unit) == rawBtc ? BalanceUnit::btc : BalanceUnit::sats;
}

void StoredSettings::setUnit(BalanceUnit unit) {
  defaults_.setText(key::unit, unit == BalanceUnit::btc ? rawBtc : rawSats);
}

PreferredFiatCurrency StoredSettings::preferredFiatCurrency() const {
  const std::string stored = defaults_.text(key::preferredFiatCurrency).value_or("");
  return fiatCurrencyFromRawValue(stored).value_or(PreferredFiatCurrency::eur);
}

void StoredSettings::setPreferredFiatCurrency(PreferredFiatCurrency currency) {
  defaults_.setText(key::preferredFiatCurrency, rawValue(currency));
}

std::string StoredSettings::ownAddress() const {
  return defaults_.text(key::ownAddress).value_or("");
}

void StoredSettings::setOwnAddress(std::string_view address) {
  defaults_.setText(key::ownAddress, address);
}

std::vector<BraiinsHistoryDay> StoredSettings::history() const {
  const std::optional<std::string> stored = defaults_.data(key::history);
  if (!stored) { return {}; }
  auto days = decodeHistory(*stored).value_or(std::vector<BraiinsHistoryDay>());
  std::ranges::sort(days, std::greater(), &BraiinsHistoryDay::date);
  return days;
}

void StoredSettings::setHistory(std::span<const BraiinsHistoryDay> days) {
  if (const std::optional<std::string> encoded = encodeHistory(days)) {
    defaults_.setData(key::history, *encoded);
  }
}

void StoredSettings::removeHistory() { defaults_.remove(key::history); }

}  // namespace orvane
