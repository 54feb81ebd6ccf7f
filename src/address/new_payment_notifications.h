#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include "address/address_summary.h"
#include "platform/async/executor.h"
#include "platform/async/task_scope.h"
#include "platform/defaults/user_defaults.h"
#include "platform/notifications/notification_center.h"
#include "platform/text/locale_format.h"

namespace orvane {
/// Tells the user of every new payment and block reward to the watched address, once. Called by
/// the store, with each summary before it is shown.
class NewPaymentNotifications {
 public:
  /// "12,345 sats": an amount of satoshis in the unit that is shown.
  using AmountText = std::function<std::string(std::int64_t sats)>;

  /// Everything given outlives the object.
  NewPaymentNotifications(Executor& executor, UserDefaults& defaults, NotificationCenter& center,
                          const LocaleFormat& format, AmountText amountText);

  /// Records every incoming transaction as seen before it returns, then posts one notification for
  /// each that was not seen before, in the order of the summary; for more than a hundred, a single
  /// one with their number and sum. The first summary of an address posts nothing.
  void notifyNewTransactions(const WatchedAddressSummary& summary);

  /// Names the address whose summaries follow; empty: none. What was seen is kept, over the end of
  /// the program as well, for as long as it is the same one, so that payments that came while
  /// nobody watched are told; for another one it is forgotten.
  void watch(const std::string& address);

 private:
  [[nodiscard]] NotificationRequest makeJointRequest(
      std::span<const WatchedAddressTransaction* const> transactions) const;
  [[nodiscard]] NotificationRequest makeNotificationRequest(
      const WatchedAddressTransaction& transaction) const;

  UserDefaults& defaults_;
  NotificationCenter& center_;
  const LocaleFormat& format_;
  AmountText amountText_;
  TaskScope posting_;
};
}  // namespace orvane
