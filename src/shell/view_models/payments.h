#pragma once

#include <string>
#include <string_view>
#include <vector>
#include "address/address_summary.h"
#include "core/balance_state.h"
#include "platform/text/locale_format.h"

namespace orvane {
/// What the window of incoming payments shows.

/// One payment to the watched address.
struct Payment {
  WatchedAddressTransaction transaction;
  std::int64_t confirmations = 0;

  bool operator==(const Payment&) const = default;
};
/// Those of the last summary, the newest first: unconfirmed ones, then the highest blocks; among
/// equals in the explorer's order. None without a summary.
[[nodiscard]] std::vector<Payment> incomingPayments(const BalanceState& state);

struct PaymentRow {
  std::string amount;
  std::string kind;           ///< "Payment" or "Block reward"
  std::string confirmations;  ///< "1,234" or "Unconfirmed"
  std::string shortId;        ///< of the transaction, "0123456789…89abcdef"
  std::string id;             ///< the whole
};
[[nodiscard]] PaymentRow paymentRow(const Payment& payment, const BalanceState& state,
                                    const LocaleFormat& format);

/// What stands in the place of the list; empty where there is a list.
[[nodiscard]] std::string paymentsHint(const BalanceState& state);

/// The transaction's page on the explorer's web site. `webHost`: "host[:port]".
[[nodiscard]] std::string transactionUrl(std::string_view webHost, std::string_view id);
}  // namespace orvane
