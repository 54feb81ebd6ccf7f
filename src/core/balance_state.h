#pragma once

#include <optional>
#include <string>
#include <vector>

#include "address/address_summary.h"
#include "platform/async/executor.h"
#include "pool/account_records.h"
#include "pool/history_day.h"
#include "prices/bitcoin_prices.h"

namespace orvane {

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

}  // namespace orvane
