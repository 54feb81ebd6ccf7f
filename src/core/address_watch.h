#pragma once

#include <chrono>
#include "address/new_payment_notifications.h"
#include "address/watched_address_client.h"
#include "core/balance_platform.h"
#include "core/balance_state.h"
#include "core/keychain_items.h"
#include "core/refresh_cycle.h"
#include "core/stored_settings.h"
#include "platform/async/task.h"
#include "platform/async/task_scope.h"

namespace orvane {
/// The address's side of the store: which address is watched, and the loop that reads it. The loop
/// always runs, so that a payout address which the miner stores later is found.
class AddressWatch {
 public:
  static constexpr std::chrono::seconds watchInterval{600};
  static constexpr std::chrono::seconds keychainPatience{20};

  /// Everything given outlives the object.
  AddressWatch(const BalancePlatform& platform, BalanceFields& fields, StoredSettings& settings,
               KeychainItems& keychain, PriceFeed& prices);

  /// Watches the stored address, if there is one, and starts the loop.
  void start();

  /// Looks again for a payout address that the last cycle could not read. Called when the keychain
  /// has come within reach.
  void readUnknownAddress();

  // See BalanceStore.
  [[nodiscard]] std::optional<std::string> setOwnAddress(std::string_view text);
  void restartAddressWatch();

  /// A network has come: refreshes at once when the last cycle lacked one.
  void takeNetwork();

 private:
  [[nodiscard]] Task<void> watchLoop();
  [[nodiscard]] Task<void> refreshAddress();
  [[nodiscard]] Task<void> resolveWatchedAddress();
  void useAddresses(std::string_view payoutAddress);
  [[nodiscard]] Task<void> loadAddressSummary();
  void applySummary(std::expected<WatchedAddressSummary, ExplorerError> summary);

  Executor& executor_;
  BalanceFields& fields_;
  StoredSettings& settings_;
  KeychainItems& keychain_;
  PriceFeed& prices_;
  WatchedAddressClient addressClient_;
  NewPaymentNotifications notifications_;
  bool isPayoutAddressUnknown_ = false;
  NetworkNeed networkNeed_;
  TaskHandle addressTask_;
  TaskScope tasks_;
};
}  // namespace orvane
