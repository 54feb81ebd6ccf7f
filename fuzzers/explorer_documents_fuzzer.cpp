// The explorer's documents: any bytes give a document or nothing, and every document gives a
// summary or a malformed answer. The input's lines are the tip's text, the totals and, to the end,
// the transactions. A part that does not decode counts as empty.

#include "address/address_summary.h"
#include "fuzzer.h"

void orvane::tryInput(std::string_view rest) {
  const std::int64_t tipHeight = parseTipHeight(takeLine(rest)).value_or(0);
  const AddressStats totals = decodeAddressStats(takeLine(rest)).value_or(AddressStats());
  const auto transactions = decodeTransactions(rest).value_or(std::vector<Transaction>());
  const auto summary =
      buildSummary(totals, transactions, tipHeight, "bc1qar0srrr7xfkvy5l643lydnw9re59gtzzwf5mdq");
  if (!summary) { return; }
  for (const WatchedAddressTransaction& transaction : summary->incoming) {
    const std::int64_t count = confirmations(tipHeight, transaction.blockHeight);
    require(transaction.sats >= 1 && count >= 0 && (transaction.blockHeight || count == 0));
  }
}
