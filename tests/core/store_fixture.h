#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "core/balance_store.h"
#include "support/fake_notification_center.h"
#include "support/memory_defaults.h"
#include "support/memory_keychain.h"
#include "support/scripted_transport.h"
#include "support/virtual_executor.h"

namespace orvane::test {

inline constexpr const char* sharedGroup = "TEAM.com.quorvex.hashwick.shared";
inline constexpr const char* firstAddress = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";
inline constexpr const char* secondAddress = "3J98t1WpEZ73CNmQviecrnyiWrnqRhWNLy";

/// A store on fakes that all work: an account of 203 satoshis with one worker and one day of
/// history, addresses that hold 100,000 satoshis, prices. Its clock starts at noon.
class StoreTest : public testing::Test {
 protected:
  StoreTest();

  /// The fakes that a store works with.
  BalancePlatform platform();
  /// Starts the application, or starts it again with what it has stored.
  void start();
  /// Starts it and lets the first things happen, in no time.
  void startAndSettle();
  /// Starts it with the stored token "first" and lets the first 100 seconds pass, and with them
  /// the first pool cycle; the second begins after 360 seconds.
  void startWithFigures();

  void storeToken(std::string token);
  void storePayoutAddress(std::string address);
  /// The watched address's summary lists these payments from now on.
  void setPayments(const std::string& address, const std::vector<std::string>& ids);

  [[nodiscard]] const BalanceState& state() const { return store->state(); }
  /// How often onChange was invoked since the last call.
  int takeChanges() { return std::exchange(changes, 0); }
  [[nodiscard]] std::optional<std::string> keptToken() const;
  /// What `flag` was, one after the other, at the announcements during `story`.
  [[nodiscard]] std::vector<bool> valuesDuring(bool BalanceState::* flag,
                                               const std::function<void()>& story);

  VirtualExecutor executor;
  ScriptedTransport transport{executor};
  MemoryDefaults defaults;
  MemoryKeychain keychain;
  FakeNotificationCenter notifications;
  LocaleFormat format{{.numbers = "de_DE.UTF-8", .dates = "de_DE.UTF-8", .timeZone = "UTC"}};
  std::optional<BalanceStore> store;
  int changes = 0;
};

}  // namespace orvane::test
