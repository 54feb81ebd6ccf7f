#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "address/watched_address_client.h"
#include "core/announcer.h"
#include "core/balance_state.h"
#include "core/keychain_items.h"
#include "platform/async/executor.h"
#include "platform/async/task_scope.h"
#include "platform/defaults/user_defaults.h"
#include "platform/http/http_transport.h"
#include "platform/notifications/notification_center.h"
#include "platform/text/locale_format.h"
#include "pool/braiins_account_client.h"
#include "prices/bitcoin_price_service.h"

namespace orvane {

/// The remote services that the store reads, each "host[:port]".
struct ServiceHosts {
  std::string pool;
  std::string explorer;
  std::string price;
  std::string fallbackPrice;
};

/// What the store works with; all of it outlives the store.
struct BalancePlatform {
  Executor& executor;
  HttpTransport& transport;
  UserDefaults& defaults;
  Keychain& keychain;
  NotificationCenter& notifications;
  const LocaleFormat& format;
  ServiceHosts hosts;
};

/// Holds everything the application shows, runs the refresh cycles, keeps settings and secrets,
/// and turns figures into texts. One exists per process; the views read it and call it.
class BalanceStore {
 public:
  using Unit = BalanceUnit;

  explicit BalanceStore(BalancePlatform platform);
  BalanceStore(const BalanceStore&) = delete;
  BalanceStore& operator=(const BalanceStore&) = delete;
  ~BalanceStore();

  [[nodiscard]] const BalanceState& state() const { return state_; }

  /// Tells views that a field was assigned; several assignments in a row announce several times.
  [[nodiscard]] Announcer::Subscription observe(Announcer::Listener listener);

  /// The menu bar's callback, invoked when its title or status may have changed, and only then.
  std::function<void()> onChange;

  /// Trims and keeps the token, forgets the figures of the old one and starts over; an empty text
  /// removes the token and the stored history. The same token again changes nothing.
  void setToken(std::string_view text);
  /// Trims and keeps the address to watch; an empty text removes it. Returns the message to show
  /// when the text is not a mainnet address; nothing changes then.
  [[nodiscard]] std::optional<std::string> setOwnAddress(std::string_view text);
  void setUnit(Unit unit);
  void setPreferredFiatCurrency(PreferredFiatCurrency currency);

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
  [[nodiscard]] bool writesFinished() const;

 private:
  BalancePlatform platform_;
  BalanceState state_;
};

}  // namespace orvane
