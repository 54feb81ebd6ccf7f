#pragma once

#include "core/address_watch.h"
#include "core/balance_platform.h"
#include "core/balance_state.h"
#include "core/pool_account.h"

namespace orvane {
/// Holds everything the application shows, runs the refresh cycles, keeps settings and secrets,
/// and turns figures into texts. One exists per process; the views read it and call it.
class BalanceStore {
 public:
  using Unit = BalanceUnit;

  /// Reads the settings, then goes on from the executor's queue: the stored token is read, and
  /// both cycles start with an immediate refresh.
  explicit BalanceStore(BalancePlatform platform);
  BalanceStore(const BalanceStore&) = delete;
  BalanceStore& operator=(const BalanceStore&) = delete;

  [[nodiscard]] const BalanceState& state() const { return fields_.state(); }

  /// Tells views that a field was assigned; several assignments in a row announce several times.
  [[nodiscard]] Registration observe(std::function<void()> listener);

  /// The menu bar's callback, invoked when its title or status may have changed, and only then:
  /// when a token was set or the stored one has been read, account figures or an address summary
  /// came or failed to, prices came, or another address is watched.
  std::function<void()> onChange;

  /// Trims and keeps the token, forgets the figures of the old one and starts over; an empty text
  /// removes the token and the stored history. The same token again changes nothing.
  void setToken(std::string_view text);
  /// Trims and keeps the address to watch; an empty text removes it. Returns the message to show
  /// when the text is not a mainnet address; nothing changes then.
  [[nodiscard]] std::optional<std::string> setOwnAddress(std::string_view text);
  void setUnit(Unit unit);
  void setPreferredFiatCurrency(PreferredFiatCurrency currency);
  void setHistoryView(HistoryView view);
  void setHistorySpan(HistorySpan span);
  /// Whether a notification tells when a worker stops or recovers.
  void setNotifiesWorkerStates(bool on);

  /// Loads the daily history, unless a load runs or there is no token.
  void loadHistory();
  /// Starts the pool cycle over, with an immediate refresh.
  void restartPolling();
  /// Starts the address cycle over, with an immediate refresh.
  void restartAddressWatch();

  [[nodiscard]] std::string amountNumberText(std::int64_t sats) const;
  [[nodiscard]] std::string amountText(std::int64_t sats) const;
  /// "203 | 0 sats": the balances for the menu bar, the pool's first; empty without figures.
  [[nodiscard]] std::string menuBarTitle() const;
  /// The value of `sats` in the preferred currency; nothing without prices.
  [[nodiscard]] std::optional<std::string> fiatText(double sats) const;
  [[nodiscard]] std::optional<std::string> priceText() const;

  /// True when every write to the keychain has ended: the process may end without losing one.
  [[nodiscard]] bool writesFinished() const { return keychain_.writesFinished(); }

 private:
  const LocaleFormat& format_;
  BalanceFields fields_;
  StoredSettings settings_;
  KeychainItems keychain_;
  PriceFeed prices_;
  PoolAccount pool_;
  AddressWatch address_;
  Registration keychainObserver_;
  Registration networkWatch_;
};
}  // namespace orvane
