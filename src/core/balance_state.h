#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "address/address_summary.h"
#include "platform/async/executor.h"
#include "pool/account.h"
#include "pool/history.h"
#include "prices/bitcoin_prices.h"

namespace orvane {

/// Tells any number of listeners that something changed. Main thread only. A listener may
/// subscribe or unsubscribe while it is being told.
class Announcer {
 public:
  using Listener = std::function<void()>;

  /// Listening ends when it is destroyed; it may outlive the announcer.
  class Subscription {
   public:
    Subscription() = default;

   private:
    friend class Announcer;
    explicit Subscription(std::shared_ptr<Listener> listener) : listener_(std::move(listener)) {}
    std::shared_ptr<Listener> listener_;
  };

  [[nodiscard]] Subscription subscribe(Listener listener);
  void announce();

 private:
  std::vector<std::weak_ptr<Listener>> listeners_;
};

/// The unit in which amounts are shown.
enum class BalanceUnit { sats, btc };

/// Every figure, status text and setting that the application shows. The store is its only
/// writer; everything shown is a function of it.
struct BalanceState {
  std::string token;
  /// The stored token is still being read from the keychain: `token` may yet arrive by itself.
  bool isReadingToken = false;
  std::optional<BraiinsAccountStats> stats;
  std::vector<BraiinsWorkerStatus> workers;
  std::vector<BraiinsHistoryDay> history;  ///< newest day first
  std::optional<WallTime> lastUpdate;      ///< when `stats` was last fetched
  std::optional<std::string> accountStatus;
  std::optional<std::string> historyStatus;
  bool isRefreshing = false;
  bool isLoadingHistory = false;

  BalanceUnit unit = BalanceUnit::sats;
  PreferredFiatCurrency preferredFiatCurrency = PreferredFiatCurrency::eur;
  std::optional<CurrentBitcoinPrices> prices;

  std::string watchedAddress;  ///< empty: none
  std::string ownAddress;      ///< the one the user entered; empty: none
  bool addressIsFromMiner = false;
  std::optional<WatchedAddressSummary> addressSummary;
  std::optional<std::string> addressStatus;
  std::optional<WallTime> addressLastUpdate;
  bool isRefreshingAddress = false;
};

/// The store's state as its parts write it: every assignment goes through here and announces
/// itself to the views.
class BalanceFields {
 public:
  /// `onChange` tells the menu bar; see BalanceStore::onChange.
  explicit BalanceFields(std::function<void()> onChange) : onChange_(std::move(onChange)) {}

  [[nodiscard]] const BalanceState& state() const { return state_; }
  const BalanceState* operator->() const { return &state_; }

  template <class Value>
  void set(Value BalanceState::* field, std::type_identity_t<Value> value) {
    state_.*field = std::move(value);
    views_.announce();
  }

  void invokeOnChange() const { onChange_(); }
  [[nodiscard]] Announcer::Subscription observe(Announcer::Listener listener) {
    return views_.subscribe(std::move(listener));
  }

 private:
  BalanceState state_;
  Announcer views_;
  std::function<void()> onChange_;
};

}  // namespace orvane
