#include "core/stored_settings.h"
#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include "pool/history.h"

namespace orvane {
namespace {
constexpr std::string_view unitKey = "balance.unit";
constexpr std::string_view preferredFiatCurrencyKey = "balance.preferredFiatCurrency";
constexpr std::string_view ownAddressKey = "balance.watchedAddress";
constexpr std::string_view historyViewKey = "balance.historyView";
constexpr std::string_view historySpanKey = "balance.historySpan";
constexpr std::string_view notifiesWorkerStatesKey = "balance.notifiesWorkerStates";
constexpr std::string_view historyKey = "balance.braiinsHistory";

constexpr std::string_view rawSats = "sats";
constexpr std::string_view rawBtc = "btc";
constexpr std::string_view rawChart = "chart";
constexpr std::string_view rawTable = "table";
/// In the order of `HistorySpan`.
constexpr std::array<std::string_view, 4> rawSpans{"30", "90", "365", "all"};
}  // namespace

BalanceUnit StoredSettings::unit() const {
  return defaults_.text(unitKey) == rawBtc ? BalanceUnit::btc : BalanceUnit::sats;
}
void StoredSettings::setUnit(BalanceUnit unit) {
  defaults_.setText(unitKey, unit == BalanceUnit::btc ? rawBtc : rawSats);
}

PreferredFiatCurrency StoredSettings::preferredFiatCurrency() const {
  const std::string stored = defaults_.text(preferredFiatCurrencyKey).value_or("");
  return fiatCurrencyFromRawValue(stored).value_or(PreferredFiatCurrency::eur);
}
void StoredSettings::setPreferredFiatCurrency(PreferredFiatCurrency currency) {
  defaults_.setText(preferredFiatCurrencyKey, rawValue(currency));
}

std::string StoredSettings::ownAddress() const {
  return defaults_.text(ownAddressKey).value_or("");
}
void StoredSettings::setOwnAddress(std::string_view address) {
  defaults_.setText(ownAddressKey, address);
}

HistoryView StoredSettings::historyView() const {
  return defaults_.text(historyViewKey) == rawChart ? HistoryView::chart : HistoryView::table;
}
void StoredSettings::setHistoryView(HistoryView view) {
  defaults_.setText(historyViewKey, view == HistoryView::chart ? rawChart : rawTable);
}

HistorySpan StoredSettings::historySpan() const {
  const auto* const raw = std::ranges::find(rawSpans, defaults_.text(historySpanKey).value_or(""));
  return raw == rawSpans.end() ? HistorySpan::year
                               : static_cast<HistorySpan>(raw - rawSpans.begin());
}
void StoredSettings::setHistorySpan(HistorySpan span) {
  defaults_.setText(historySpanKey, rawSpans.at(static_cast<std::size_t>(span)));
}

bool StoredSettings::notifiesWorkerStates() const {
  return defaults_.boolean(notifiesWorkerStatesKey).value_or(false);
}
void StoredSettings::setNotifiesWorkerStates(bool on) {
  defaults_.setBoolean(notifiesWorkerStatesKey, on);
}

std::vector<BraiinsHistoryDay> StoredSettings::history() const {
  const std::optional<std::string> stored = defaults_.data(historyKey);
  if (!stored) { return {}; }
  auto days = decodeHistory(*stored).value_or(std::vector<BraiinsHistoryDay>());
  std::ranges::sort(days, std::greater(), &BraiinsHistoryDay::date);
  return days;
}
void StoredSettings::setHistory(std::span<const BraiinsHistoryDay> days) {
  if (const std::optional<std::string> encoded = encodeHistory(days)) {
    defaults_.setData(historyKey, *encoded);
  }
}
void StoredSettings::removeHistory() { defaults_.remove(historyKey); }
}  // namespace orvane
