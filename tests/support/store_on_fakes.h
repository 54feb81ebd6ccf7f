#pragma once

#include "core/balance_store.h"
#include "support/fake_network_watch.h"
#include "support/fake_notification_center.h"
#include "support/memory_defaults.h"
#include "support/memory_keychain.h"
#include "support/scripted_transport.h"
#include "support/virtual_executor.h"

namespace orvane::test {
inline constexpr const char* sharedGroup = "TEAM.com.quorvex.hashwick.shared";
inline constexpr const char* firstAddress = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";
inline constexpr const char* secondAddress = "3J98t1WpEZ73CNmQviecrnyiWrnqRhWNLy";

/// A store, and the fakes that it works with. Unless told otherwise its services know an account
/// of 203 satoshis with one worker and one day of history, addresses that hold 100,000 satoshis,
/// and prices; nothing is stored. The clock starts at noon.
///
///     BalanceState figures;
///     figures.token = "token";
///     figures.stats = BraiinsAccountStats{.balanceSats = 5};
///     showing.startShowing(figures);        // showing.state().stats is 5 satoshis
///     figures.stats->balanceSats = 6;
///     showing.bring(figures);               // now 6
class StoreOnFakes {
 public:
  StoreOnFakes();

  /// The fakes that a store works with.
  BalancePlatform platform();
  /// Starts the application, or starts it again with what it has stored.
  void start();
  /// Starts it with the settings and figures of `shown`, which the services then know as well.
  /// What `shown` lacks is under way and does not arrive; status texts come of failures only.
  void startShowing(const BalanceState& shown);
  /// The services have new figures, and both cycles bring them.
  void bring(const BalanceState& shown);

  /// The services have new figures; the next cycle brings them.
  void knowFigures(const BalanceState& shown);

  void storeToken(std::string_view token);
  void storePayoutAddress(std::string address);
  /// The summary of `address` lists these payments from now on.
  void setPayments(const std::string& address, const std::vector<std::string>& ids);

  [[nodiscard]] const BalanceState& state() const { return store->state(); }
  [[nodiscard]] std::optional<std::string> keptToken() const;

  VirtualExecutor executor;
  ScriptedTransport transport{executor};
  MemoryDefaults defaults;
  MemoryKeychain keychain;
  FakeNotificationCenter notifications;
  FakeNetworkWatch network;
  LocaleFormat format{{.numbers = "de_DE.UTF-8", .dates = "de_DE.UTF-8", .timeZone = "UTC"}};
  std::optional<BalanceStore> store;
  int changes = 0;  ///< how often onChange was invoked

 private:
  void storeItem(std::string service, std::string account, std::string data);
};
}  // namespace orvane::test
