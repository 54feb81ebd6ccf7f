#pragma once

#include <chrono>
#include "core/balance_platform.h"
#include "core/balance_state.h"
#include "core/keychain_items.h"
#include "core/refresh_cycle.h"
#include "core/stored_settings.h"
#include "core/worker_notifications.h"
#include "platform/async/task.h"
#include "platform/async/task_scope.h"
#include "pool/braiins_account_client.h"

namespace orvane {
/// The pool's side of the store: the token, the loop that reads the account while there is one,
/// and the load of the daily history.
class PoolAccount {
 public:
  static constexpr std::chrono::seconds pollInterval{300};

  /// Everything given outlives the object.
  PoolAccount(const BalancePlatform& platform, BalanceFields& fields, StoredSettings& settings,
              KeychainItems& keychain, PriceFeed& prices);

  /// Reads the stored token and starts polling with it. The user may have to unlock the keychain;
  /// a token that is set meanwhile counts.
  void readStoredToken();
  /// Reads it again where the first read could not tell, and no token was entered since. Called
  /// when the keychain has come within reach.
  void readUnknownToken();

  // See BalanceStore.
  void setToken(std::string_view text);
  void restartPolling();
  void loadHistory();
  void setNotifiesWorkerStates(bool on);

  /// A network has come: refreshes at once when the last cycle lacked one.
  void takeNetwork();

 private:
  [[nodiscard]] Task<void> useStoredToken();
  void assignToken(Secret token);

  [[nodiscard]] Task<void> pollLoop();
  [[nodiscard]] Task<void> refreshAccount();
  [[nodiscard]] Task<bool> refreshStats();
  [[nodiscard]] Task<void> refreshWorkers();

  void dropHistoryLoad();
  [[nodiscard]] Task<void> historyLoad();
  void applyHistory(std::expected<std::vector<BraiinsHistoryDay>, PoolError> days);

  Executor& executor_;
  const LocaleFormat& format_;
  BalanceFields& fields_;
  StoredSettings& settings_;
  KeychainItems& keychain_;
  PriceFeed& prices_;
  BraiinsAccountClient client_;
  WorkerNotifications workerNotifications_;
  bool isStoredTokenUnknown_ = false;
  NetworkNeed networkNeed_;
  TaskHandle pollTask_;
  TaskHandle historyTask_;  ///< set while a load runs; the state's isLoadingHistory mirrors it
  TaskScope tasks_;
};
}  // namespace orvane
