#include "shell/view_models/payments.h"
#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <utility>
#include <fmt/format.h>
#include "core/display_texts.h"

namespace orvane {
namespace {
constexpr std::size_t shownAtEachEnd = 8;

/// Ids are 64 letters and digits; anything else is shown as it is.
bool isPlain(std::string_view id) {
  return std::ranges::all_of(id, [](unsigned char each) {
    return (each >= '0' && each <= '9') || (each >= 'a' && each <= 'z') ||
           (each >= 'A' && each <= 'Z');
  });
}

std::string shortened(const std::string& id) {
  if (id.size() <= 2 * shownAtEachEnd + 1 || !isPlain(id)) { return id; }
  return id.substr(0, shownAtEachEnd) + "…" + id.substr(id.size() - shownAtEachEnd);
}
}  // namespace

std::vector<Payment> incomingPayments(const BalanceState& state) {
  if (!state.addressSummary) { return {}; }
  const WatchedAddressSummary& summary = *state.addressSummary;
  std::multimap<std::int64_t, Payment, std::greater<>> byHeight;
  for (const WatchedAddressTransaction& transaction : summary.incoming) {
    const auto& height = transaction.blockHeight;
    byHeight.emplace(height.value_or(std::numeric_limits<std::int64_t>::max()),
                     Payment{.transaction = transaction,
                             .confirmations = confirmations(summary.tipHeight, height)});
  }
  std::vector<Payment> payments;
  payments.reserve(byHeight.size());
  for (auto& [height, payment] : byHeight) {
    payments.push_back(std::move(payment));
  }
  return payments;
}

PaymentRow paymentRow(const Payment& payment, const BalanceState& state,
                      const LocaleFormat& format) {
  const WatchedAddressTransaction& transaction = payment.transaction;
  return {.amount = amountText(state, format, transaction.sats),
          .kind = transaction.isCoinbase ? "Block reward" : "Payment",
          .confirmations =
              transaction.blockHeight ? format.integer(payment.confirmations) : "Unconfirmed",
          .shortId = shortened(transaction.txid),
          .id = transaction.txid};
}

std::string paymentsHint(const BalanceState& state) {
  if (state.watchedAddress.empty()) { return "No address is being watched."; }
  if (!state.addressSummary) { return "The address has not been read yet."; }
  return state.addressSummary->incoming.empty() ? "The explorer lists no payment to this address."
                                                : "";
}

std::string transactionUrl(std::string_view webHost, std::string_view id) {
  std::string path;
  for (const char each : id) {
    if (isPlain({&each, 1})) {
      path += each;
    } else {
      path += fmt::format("%{:02X}", static_cast<unsigned char>(each));
    }
  }
  return fmt::format("https://{}/tx/{}", webHost, path);
}
}  // namespace orvane
