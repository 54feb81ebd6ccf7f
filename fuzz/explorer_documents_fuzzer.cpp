// The explorer's documents: any bytes give a document or nothing, and every document gives a
// summary or a malformed answer.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

#include "address/address_summary.h"
#include "address/explorer_documents.h"

namespace orvane {
namespace {

constexpr std::string_view watchedAddress = "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq";

bool isSound(const WatchedAddressTransaction& transaction, std::int64_t tipHeight) {
  const std::int64_t count = confirmations(tipHeight, transaction.blockHeight);
  return transaction.sats >= 1 && count >= 0 && (transaction.blockHeight || count == 0);
}

void summarize(const AddressStats& totals, const std::vector<Transaction>& transactions,
               std::int64_t tipHeight) {
  const auto summary = buildSummary(totals, transactions, tipHeight, watchedAddress);
  if (!summary) { return; }
  for (const WatchedAddressTransaction& transaction : summary->incoming) {
    if (!isSound(transaction, summary->tipHeight)) { std::abort(); }
  }
}

}  // namespace
}  // namespace orvane

// The input's lines are the tip's text, the totals and, to the end, the transactions. A part that
// does not decode counts as empty.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  const auto nextLine = [&] {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(rest.size(), line.size() + 1));
    return line;
  };
  const std::optional<std::int64_t> tipHeight = orvane::parseTipHeight(nextLine());
  const std::optional<orvane::AddressStats> totals = orvane::decodeAddressStats(nextLine());
  const auto transactions = orvane::decodeTransactions(rest);
  orvane::summarize(totals.value_or(orvane::AddressStats()),
                    transactions.value_or(std::vector<orvane::Transaction>()),
                    tipHeight.value_or(0));
  return 0;
}
