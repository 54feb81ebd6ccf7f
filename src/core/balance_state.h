#pragma once

#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>
#include "address/address_summary.h"
#include "platform/async/executor.h"
#include "platform/async/signal.h"
#include "platform/secret/secret.h"
#include "pool/account.h"
#include "pool/history.h"
#include "prices/bitcoin_prices.h"

namespace orvane {
/// The unit in which amounts are shown.
enum class BalanceUnit { sats, btc };

/// How the daily history is shown, and how much of it a picture shows.
enum class HistoryView { table, chart };
enum class HistorySpan { days30, days90, year, all };

/// Every figure, status text and setting that the application shows. The store is its only
/// writer; everything shown is a function of it.
struct BalanceState {
  Secret token;
  /// The stored token is still being read from the keychain: `token` may yet arrive by itself.
  bool isReadingToken = false;
  /// There is a token, or it may be on its way: the pool's figures are, and nobody is asked for
  /// one.
  [[nodiscard]] bool expectsAccount() const { return isReadingToken || !token.empty(); }
  /// There is something to read: a token, an address or both.
  [[nodiscard]] bool hasSource() const { return !token.empty() || !watchedAddress.empty(); }
  std::optional<BraiinsAccountStats> stats;
  std::vector<BraiinsWorkerStatus> workers;
  std::vector<BraiinsHistoryDay> history;  ///< newest day first
  std::optional<WallTime> lastUpdate;      ///< when `stats` was last fetched
  std::optional<std::string> accountStatus;
  std::optional<std::string> historyStatus;
  bool hasHistoryFailed = false;  ///< it tells of a failure
  bool isRefreshing = false;
  bool isLoadingHistory = false;

  BalanceUnit unit = BalanceUnit::sats;
  PreferredFiatCurrency preferredFiatCurrency = PreferredFiatCurrency::eur;
  HistoryView historyView = HistoryView::table;
  HistorySpan historySpan = HistorySpan::year;
  bool notifiesWorkerStates = false;  ///< a notification tells when a worker stops or recovers
  std::optional<CurrentBitcoinPrices> prices;

  std::string watchedAddress;  ///< empty: none
  std::string ownAddress;      ///< the one the user entered; empty: none
  bool addressIsFromMiner = false;
  std::optional<WatchedAddressSummary> addressSummary;
  std::optional<std::string> addressStatus;
  std::optional<WallTime> addressLastUpdate;
  bool isRefreshingAddress = false;
};

/// The state as the store's parts write it: every assignment goes through here and announces
/// itself to the views. The menu bar is told apart from them; see BalanceStore::onChange.
class BalanceFields {
 public:
  explicit BalanceFields(std::function<void()> onChange) : onChange_(std::move(onChange)) {}

  [[nodiscard]] const BalanceState& state() const { return state_; }
  const BalanceState* operator->() const { return &state_; }

  template <class Value>
  void set(Value BalanceState::* field, std::type_identity_t<Value> value) {
    state_.*field = std::move(value);
    assigned_.send();
  }

  void invokeOnChange() const { onChange_(); }
  [[nodiscard]] Registration observe(std::function<void()> listener) {
    return assigned_.subscribe(std::move(listener));
  }

 private:
  BalanceState state_;
  Signal<> assigned_;
  std::function<void()> onChange_;
};
}  // namespace orvane
