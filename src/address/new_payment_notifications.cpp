#include "address/new_payment_notifications.h"
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <fmt/format.h>
#include "platform/decimal/decimal.h"

namespace orvane {
namespace {
constexpr std::string_view seenTransactionsKey = "balance.watchedAddressSeenTransactions";
/// The address that they belong to.
constexpr std::string_view seenAddressKey = "balance.watchedAddressSeenTransactionsAddress";

/// More than an honest answer lists; beyond it one notification tells of all.
constexpr std::size_t mostNotifications = 100;
}  // namespace

NewPaymentNotifications::NewPaymentNotifications(Executor& executor, UserDefaults& defaults,
                                                 NotificationCenter& center,
                                                 const LocaleFormat& format, AmountText amountText)
    : defaults_(defaults),
      center_(center),
      format_(format),
      amountText_(std::move(amountText)),
      posting_(executor) {}

void NewPaymentNotifications::notifyNewTransactions(const WatchedAddressSummary& summary) {
  const std::optional<std::vector<std::string>> known = defaults_.texts(seenTransactionsKey);
  std::vector<std::string> seen = known.value_or(std::vector<std::string>());
  std::set<std::string> seenIds(seen.begin(), seen.end());
  std::vector<const WatchedAddressTransaction*> arrivals;
  for (const WatchedAddressTransaction& transaction : summary.incoming) {
    if (seenIds.insert(transaction.txid).second) {
      seen.push_back(transaction.txid);
      arrivals.push_back(&transaction);
    }
  }
  defaults_.setTexts(seenTransactionsKey, seen);
  if (!known || arrivals.empty()) { return; }
  std::vector<NotificationRequest> requests;
  if (arrivals.size() > mostNotifications) {
    requests.push_back(makeJointRequest(arrivals));
  } else {
    requests.reserve(arrivals.size());
    for (const WatchedAddressTransaction* const transaction : arrivals) {
      requests.push_back(makeNotificationRequest(*transaction));
    }
  }
  posting_.spawn(postInOrder(center_, std::move(requests)));
}

void NewPaymentNotifications::watch(const std::string& address) {
  if (defaults_.text(seenAddressKey) == address) { return; }
  // In this order: a list without its address is forgotten, one with another's would be believed.
  defaults_.remove(seenTransactionsKey);
  defaults_.setText(seenAddressKey, address);
}

NotificationRequest NewPaymentNotifications::makeJointRequest(
    std::span<const WatchedAddressTransaction* const> transactions) const {
  std::int64_t sum = 0;
  for (const WatchedAddressTransaction* const transaction : transactions) {
    sum = saturatingSum(sum, transaction->sats);
  }
  const std::string number = format_.integer(static_cast<std::int64_t>(transactions.size()));
  return {.identifier = "address-joint",
          .title = number + " payments received",
          .body = amountText_(sum) + " in all to your watched address.",
          .sound = NotificationSound::standard};
}

NotificationRequest NewPaymentNotifications::makeNotificationRequest(
    const WatchedAddressTransaction& transaction) const {
  const std::string identifier = "address-" + transaction.txid;
  const std::string amount = amountText_(transaction.sats);
  if (!transaction.isCoinbase) {
    return {.identifier = identifier,
            .title = "Payment received",
            .body = amount + " to your watched address.",
            .sound = NotificationSound::standard};
  }
  const std::string height =
      transaction.blockHeight ? format_.integer(*transaction.blockHeight) : "—";
  return {.identifier = identifier,
          .title = "Block reward received",
          .body = fmt::format("{} from block #{} to your watched address. "
                              "It can be spent after {} confirmations.",
                              amount, height, coinbaseMaturity),
          .sound = NotificationSound::critical};
}
}  // namespace orvane
